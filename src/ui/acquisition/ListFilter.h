#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace tarnlog {

/// Where the user types which rows of the value list are to be seen, and how many of them are. What is typed
/// here is text: Enter and space do not reach the recorder. Escape empties it; the focus goes back to where
/// it was, or to the list where that is no longer seen.
class ListFilter : public QWidget {
  Q_OBJECT
 public:
  explicit ListFilter(QWidget* parent = nullptr);

  QLineEdit& box() { return *box_; }
  /// Takes the focus, from the widget that had it; what is in it is selected.
  void enter(QWidget* from);
  /// Rows that are seen, of all.
  void setCounts(int shown, int all);

  QSize sizeHint() const override;

 signals:
  void changed(const QString& text);
  /// The user is done with it, by key, and nobody has the focus to be given back.
  void left();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool take(int key);
  void leave();

  QLineEdit* box_;
  QLabel* count_;
  QPointer<QWidget> before_;  ///< had the focus
};

}  // namespace tarnlog
