#include "ui/scope/CurvePreview.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "platform/controls/Readable.h"

namespace tarnlog {

void CurvePreview::setColour(const QColor& colour) {
  colour_ = colour;
  update();
}

QSize CurvePreview::sizeHint() const {
  const int height = fontMetrics().height() + 8;
  return {4 * height, height};
}

void CurvePreview::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor base = palette().color(QPalette::Base);
  const QColor text = palette().color(QPalette::Text);
  const QRectF frame = QRectF(rect()).adjusted(0.5, 2.5, -0.5, -2.5);
  painter.fillRect(frame, base);
  painter.setPen(blend(base, text, 0.16F));
  painter.drawLine(QLineF(frame.left(), frame.center().y(), frame.right(), frame.center().y()));
  for (int quarter = 1; quarter < 4; ++quarter) {
    const double x = std::floor(frame.left() + frame.width() * quarter / 4) + 0.5;
    painter.drawLine(QLineF(x, frame.top(), x, frame.bottom()));
  }
  QPainterPath curve;
  for (double x = frame.left(); x <= frame.right(); x += 1) {
    const double y = frame.center().y() - std::sin(x / 7) * std::cos(x / 19) * frame.height() * 0.36;
    if (curve.elementCount() == 0) {
      curve.moveTo(x, y);
    } else {
      curve.lineTo(x, y);
    }
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour_, 1.5));
  painter.drawPath(curve);
  painter.setPen(blend(base, text, 0.45F));
  painter.drawRect(frame);
}

}  // namespace tarnlog
