#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

#include "ui/review/CurveTrace.h"
#include "ui/review/ReviewKeys.h"
#include "ui/review/ReviewLook.h"

namespace tarnlog {

/// The whole record, small: a curve of it, marks and cursors, and what is seen as a window that can be moved
/// and made wider or narrower with the mouse. A click beside it moves it there.
class OverviewStrip : public QWidget {
  Q_OBJECT
 public:
  /// The scene outlives it, or is told nothing more once it is gone.
  explicit OverviewStrip(ReviewScene& scene, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Grip { None, Left, Right, Window };

  void react(unsigned changes);
  std::optional<ReviewCurve> shown() const;
  void draw();
  double xOf(double time) const;
  double timeAt(double x) const;
  Grip gripAt(double x) const;
  void drag(double x);

  ReviewScene& scene_;
  SeenRecords seen_;
  QImage picture_;  ///< null: to be drawn
  Grip grip_ = Grip::None;
  TimeSpan atPress_;
  double pressed_ = 0;
  bool goesOn_ = false;  ///< what is seen has moved since the press
  ReviewWheel wheel_;
};

}  // namespace tarnlog
