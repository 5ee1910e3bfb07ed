#include "platform/controls/CWSlide.h"

#include <QAccessible>
#include <QLocale>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/controls/AxisTexts.h"
#include "platform/controls/Readable.h"
#include "platform/controls/SlideAccess.h"

namespace tarnlog {
namespace {

constexpr int kMargin = 8;           ///< room for a marker at either end
constexpr int kMarkerBelow = 2;      ///< pixels that a marker stands out of the track
constexpr int kHighestTrack = 18;    ///< pixels
constexpr int kLeastWithScale = 12;  ///< pixels above the numbers

}  // namespace

CWSlide::CWSlide(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  installSlideAccess();
}

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
  if (!changed || changed->value == value || (std::isnan(changed->value) && std::isnan(value))) return;
  changed->value = value;
  if (held_) return;
  pacer_.request(movingPart());
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
  const double value = shownValue();
  return std::isnan(value) ? QString() : locale().toString(value, 'g', 7);
}

void CWSlide::setFaded(bool faded) {
  if (std::exchange(faded_, faded) != faded) update(movingPart());
}

void CWSlide::setPointerFillColour(int number, const QColor& colour) {
  if (Pointer* const changed = pointer(number)) repaintWith(changed->fill, colour);
}

void CWSlide::setPointerColour(int number, const QColor& colour) {
  if (Pointer* const changed = pointer(number)) repaintWith(changed->colour, colour);
}

/// A marker outside of the axis is made red with each value.
void CWSlide::repaintWith(QColor& colour, const QColor& wanted) {
  if (colour == wanted) return;
  colour = wanted;
  pacer_.request(movingPart());
}

/// Numbers below the track, when there are two at least and room for the track.
AxisTicks CWSlide::scale() const {
  const AxisTicks ticks = ticksAlong(axis_, locale(), fontMetrics(), track().width());
  return ticks.count < 2 || !hasScale() ? AxisTicks() : ticks;
}

bool CWSlide::hasScale() const {
  const int line = fontMetrics().height();
  return height() >= line + kLeastWithScale && width() >= 6 * line;
}

QRect CWSlide::track() const {
  const bool tiny = height() <= 2 * kMarkerBelow;
  const int top = tiny ? 0 : 1;
  const int below = tiny ? 0 : hasScale() ? fontMetrics().height() + 2 : kMarkerBelow;
  return {kMargin, top, std::max(width() - 2 * kMargin, 1),
          std::clamp(height() - below - 2 * top, 1, kHighestTrack)};
}

QRect CWSlide::movingPart() const { return {0, 0, width(), track().bottom() + kMarkerBelow + 2}; }

double CWSlide::place(double value) const {
  const double part = std::clamp((value - axis_.minimum) / axis_.span(), 0.0, 1.0);
  return kMargin + part * std::max(width() - 2 * kMargin, 0);
}

void CWSlide::paintTrack(QPainter& painter, const QRect& track) const {
  const QColor base = palette().color(QPalette::Base);
  const bool bordered = track.height() > 3;
  const QRect inside = bordered ? track.adjusted(1, 1, -1, -1) : track;
  if (bordered) painter.fillRect(track, blend(base, palette().color(QPalette::Text), 0.45F));
  painter.fillRect(inside, base);
  const Pointer& value = shown()[0];
  if (std::isnan(value.value)) return;
  const QColor fill = value.fill.isValid() ? value.fill : palette().color(QPalette::Highlight);
  QRectF bar = inside;
  bar.setRight(std::clamp(place(value.value), bar.left(), bar.right()));
  painter.fillRect(bar, blend(base, readableCurve(fill, base), faded_ || !isEnabled() ? 0.4F : 1));
}

void CWSlide::paintMarker(QPainter& painter, const Pointer& marker, const QRect& track) const {
  if (std::isnan(marker.value) || height() <= 2 * kMarkerBelow) return;
  const double x = place(marker.value);
  const double base = track.bottom() + kMarkerBelow + 0.5;
  const double high = track.height() / 2.0 + kMarkerBelow;
  const double half = std::clamp(high / 2, 2.0, 6.0);
  const QPointF shape[] = {{x, base - high}, {x - half, base}, {x + half, base}};
  painter.setPen(blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.7F));
  painter.setBrush(marker.colour.isValid() ? marker.colour : palette().color(QPalette::Button));
  painter.drawPolygon(shape, 3);
}

void CWSlide::paintScale(QPainter& painter, const QRect& track) const {
  const AxisTicks ticks = scale();
  const QFontMetrics metrics = fontMetrics();
  const QStringList numbers = axisTexts(ticks, locale(), metrics, track.width() / 2);
  painter.setPen(palette().color(QPalette::WindowText));
  for (int i = 0; i < ticks.count; ++i) {
    const int wide = numberWidth(numbers[i], metrics);
    const int start =
        std::clamp(static_cast<int>(place(ticks.at(i))) - wide / 2, 0, std::max(width() - wide, 0));
    painter.drawText(start, track.bottom() + 2 + metrics.ascent(), numbers[i]);
  }
}

void CWSlide::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), palette().color(QPalette::Window));
  const QRect bar = track();
  if (!movingPart().contains(event->rect())) paintScale(painter, bar);
  paintTrack(painter, bar);
  painter.setRenderHint(QPainter::Antialiasing);
  paintMarker(painter, shown()[1], bar);
  paintMarker(painter, shown()[2], bar);
}

}  // namespace tarnlog
