#pragma once

#include <QString>
#include <QTabBar>
#include <QWidget>

namespace tarnlog {

/// A tab bar above a framed client area. Each tab has a key; what belongs on the client area is placed there
/// by whoever owns the strip.
class TabStrip : public QWidget {
  Q_OBJECT
 public:
  explicit TabStrip(QWidget* parent = nullptr);

  void addTab(const QString& key, const QString& caption);
  QString currentKey() const;
  /// Nothing happens for a key that no tab has.
  void select(const QString& key);

  QTabBar& bar() { return *bar_; }
  /// In coordinates of the strip.
  QRect clientArea() const;
  /// What is left of the line of tabs, in coordinates of the strip.
  QRect corner() const;

  /// A frame in a signal colour; an invalid colour takes it away.
  void setHighlight(const QColor& colour);

 signals:
  void selected(const QString& key);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QRect pane() const;

  QTabBar* bar_;
  QColor highlight_;
};

}  // namespace tarnlog
