#pragma once

#include <QRect>
#include <QWidget>

#include "ui/review/ReviewLook.h"

class QPainter;

namespace tarnlog {

/// True times under the lowest graph.
class TimeAxis : public QWidget {
  Q_OBJECT
 public:
  TimeAxis(const ReviewScene& scene, QWidget* parent);
  /// Where the graphs above have their curves.
  void setPlot(int left, int width);

  /// Into a line of text that stands below `area`.
  static void paint(QPainter& painter, const ReviewScene& scene, const QRect& area, const ReviewLook& look);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ReviewScene& scene_;
  int left_ = 0;
  int width_ = 0;
};

}  // namespace tarnlog
