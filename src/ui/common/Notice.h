#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

namespace tarnlog {

/// A line that says in place what is wrong; with nothing to say it is not there. No box to click away.
class Notice : public QWidget {
  Q_OBJECT

 public:
  explicit Notice(QWidget* parent = nullptr);
  QString text() const { return text_->text(); }
  /// An empty text hides the notice.
  void setText(const QString& text);

 private:
  QLabel* text_;
};

}  // namespace tarnlog
