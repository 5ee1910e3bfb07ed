#include "platform/controls/CWSlide.h"

#include <QAccessible>
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/controls/Readable.h"
#include "platform/controls/SlideAccess.h"

namespace tarnlog {
namespace {

constexpr int kMargin = 8;  ///< room for a marker at either end

}  // namespace

CWSlide::CWSlide(QWidget* parent) : QWidget(parent) { installSlideAccess(); }

void CWSlide::setTitle(const QString& title) {
  setAccessibleName(title);
  setToolTip(title);
}

void CWSlide::setAxisRange(double minimum, double maximum) {
  axis_ = saneRange(minimum, maximum);
  update();
}

CWSlide::Pointer* CWSlide::pointer(int number) {
  return number >= 1 && number <= 3 ? &pointers_[static_cast<std::size_t>(number - 1)] : nullptr;
}

double CWSlide::pointerValue(int number) const {
  if (number < 1 || number > 3) return std::numeric_limits<double>::quiet_NaN();
  return pointers_[static_cast<std::size_t>(number - 1)].value;
}

void CWSlide::setPointerValue(int number, double value) {
  Pointer* const changed = pointer(number);
  if (!changed || changed->value == value) return;
  changed->value = value;
  if (held_) return;
  pacer_.request(rect());
  if (number != 1 || !QAccessible::isActive()) return;
  QAccessibleValueChangeEvent spoken(this, value);
  QAccessible::updateAccessibility(&spoken);
}

void CWSlide::setFrozen(bool frozen) {
  if (frozen == isFrozen()) return;
  held_ = frozen ? std::optional(pointers_) : std::nullopt;
  update();
}

QString CWSlide::valueText() const {
  const double value = shown()[0].value;
  return std::isnan(value) ? QString() : locale().toString(value, 'g', 7);
}

void CWSlide::setPointerFillColour(int number, const QColor& colour) {
  if (Pointer* const changed = pointer(number)) changed->fill = colour;
  update();
}

void CWSlide::setPointerColour(int number, const QColor& colour) {
  if (Pointer* const changed = pointer(number)) changed->colour = colour;
  update();
}

double CWSlide::place(double value) const {
  const double part = std::clamp((value - axis_.minimum) / axis_.span(), 0.0, 1.0);
  return kMargin + part * std::max(width() - 2 * kMargin, 0);
}

void CWSlide::paintMarker(QPainter& painter, const Pointer& marker, const QRectF& track) const {
  if (std::isnan(marker.value)) return;
  const double x = place(marker.value);
  const double half = std::clamp(track.height() / 3, 2.0, 5.0);
  const QPointF shape[] = {
      {x, track.bottom() - half}, {x - half, track.bottom() + half}, {x + half, track.bottom() + half}};
  painter.setPen(blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.7F));
  painter.setBrush(marker.colour.isValid() ? marker.colour : palette().color(QPalette::Button));
  painter.drawPolygon(shape, 3);
}

void CWSlide::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int line = fontMetrics().height();
  const bool labels = height() >= line + 16;
  const double high = std::clamp(height() - (labels ? line + 8.0 : 4.0), 1.0, 18.0);
  const QRectF track(kMargin, 2, std::max(width() - 2 * kMargin, 1), high);
  painter.setPen(blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.45F));
  painter.setBrush(palette().base());
  painter.drawRect(track);
  const Pointer& value = shown()[0];
  if (!std::isnan(value.value)) {
    QRectF bar = track.adjusted(1, 1, 0, -1);
    bar.setRight(std::max(place(value.value), bar.left()));
    const QColor fill = value.fill.isValid() ? value.fill : palette().color(QPalette::Highlight);
    painter.fillRect(bar, readableCurve(fill, palette().color(QPalette::Base)));
  }
  paintMarker(painter, shown()[1], track);
  paintMarker(painter, shown()[2], track);
  if (!labels) return;
  painter.setPen(palette().color(QPalette::WindowText));
  const AxisTicks ticks = ticksFor(axis_, std::clamp(width() / (line * 5), 1, 11));
  for (int i = 0; i < ticks.count; ++i) {
    const QString text = locale().toString(ticks.at(i), 'f', ticks.decimals);
    const int wide = fontMetrics().horizontalAdvance(text);
    const int x = std::clamp(static_cast<int>(place(ticks.at(i))) - wide / 2, 0, std::max(width() - wide, 0));
    painter.drawText(x, static_cast<int>(track.bottom()) + 6, wide, line, Qt::AlignCenter, text);
  }
}

}  // namespace tarnlog
