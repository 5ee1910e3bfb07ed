#include "ui/acquisition/Indicator.h"

#include <QPainter>
#include <algorithm>

#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr int kPadding = 6;
constexpr qreal kCorner = 3;
constexpr int kCharacters = 9;  ///< as wide as the longest caption and its sign

}  // namespace

Indicator::Indicator(const QString& name, QWidget* parent) : QLabel(parent) {
  setAccessibleName(name);
  setTextFormat(Qt::PlainText);
  setBackgroundRole(QPalette::Button);
  setForegroundRole(QPalette::ButtonText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  QFont bold;
  bold.setBold(true);
  setFont(bold);
}

void Indicator::setColour(Colour colour) {
  if (colour_ == colour) return;
  colour_ = colour;
  QPalette colours;  // what is not set here follows the desktop
  if (colour != kButtonFace) {
    const QColor face = toQColor(colour, colours);
    colours.setColor(QPalette::Button, face);
    colours.setColor(QPalette::ButtonText, readable(Qt::black, face, kTextContrast));
  }
  setPalette(colours);
}

void Indicator::setMeaning(Sign sign, const QString& words) {
  sign_ = sign;
  setToolTip(words);
  setAccessibleDescription(words);
  update();
}

QSize Indicator::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.averageCharWidth() * kCharacters + 2 * kPadding, metrics.height() + 2 * kPadding};
}

int Indicator::signSize() const { return sign_ == Sign::None ? 0 : fontMetrics().ascent(); }

void Indicator::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(palette().color(backgroundRole()));
  painter.setPen(QPen(palette().color(QPalette::Mid), 1));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);

  painter.setPen(QPen(palette().color(foregroundRole()), 1.5));
  const int sign = signSize();
  const int gap = sign > 0 && !text().isEmpty() ? kPadding : 0;
  const int wide = fontMetrics().horizontalAdvance(text());
  const int left = std::max((width() - sign - gap - wide) / 2, kPadding);
  if (sign > 0) paintSign(painter, QRectF(left, (height() - sign) / 2.0, sign, sign));
  painter.drawText(rect().adjusted(left + sign + gap, 0, -kPadding, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   text());
}

void Indicator::paintSign(QPainter& painter, const QRectF& square) const {
  if (sign_ == Sign::Warning) return paintWarning(painter, square);
  const QRectF ring = square.adjusted(1, 1, -1, -1);
  const QColor ink = painter.pen().color();
  painter.setBrush(sign_ == Sign::Disc ? QBrush(ink) : QBrush(Qt::NoBrush));
  painter.drawEllipse(ring);
  painter.setBrush(ink);
  if (sign_ == Sign::HalfDisc) painter.drawPie(ring, 90 * 16, 180 * 16);
  if (sign_ == Sign::RingWithDot) painter.drawEllipse(ring.center(), ring.width() / 8, ring.height() / 8);
}

/// A triangle with an exclamation mark.
void Indicator::paintWarning(QPainter& painter, const QRectF& square) {
  const QRectF box = square.adjusted(1, 1, -1, -1);
  const qreal middle = box.center().x();
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(QPolygonF({QPointF(middle, box.top()), box.bottomRight(), box.bottomLeft()}));
  painter.drawLine(QPointF(middle, box.top() + 0.4 * box.height()),
                   QPointF(middle, box.top() + 0.65 * box.height()));
  painter.drawPoint(QPointF(middle, box.top() + 0.85 * box.height()));
}

}  // namespace tarnlog
