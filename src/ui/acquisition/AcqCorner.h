#pragma once

#include <QCoreApplication>
#include <QRect>

class QLabel;
class QToolButton;
class QWidget;

namespace tarnlog {

/// What stands at the right end of the line of tabs: the pause and help buttons, and a mark while the picture
/// stands still. The widgets are children of the view.
class AcqCorner {
  Q_DECLARE_TR_FUNCTIONS(AcqCorner)
 public:
  explicit AcqCorner(QWidget& view);

  QToolButton& pauseButton() { return *pauseButton_; }
  QToolButton& helpButton() { return *helpButton_; }
  void setPaused(bool paused);
  /// Since when the vehicle has not answered, in seconds; 0 when it does.
  void setSilence(qint64 seconds);
  /// How long a time the graphs show; empty: not known, or no graphs are seen.
  void setWindow(const QString& time);
  /// At the right end of this area. Returns what is left of it.
  QRect place(const QRect& area);

 private:
  QLabel* window_;
  QLabel* silenceMark_;
  QLabel* pausedMark_;
  QToolButton* pauseButton_;
  QToolButton* helpButton_;
};

}  // namespace tarnlog
