#include "ui/review/TimeAxis.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/common/Convert.h"
#include "ui/review/TimeTicks.h"

namespace tarnlog {
namespace {

constexpr int kTick = 3;  ///< pixels
constexpr int kGap = 6;   ///< between texts

/// Texts stand below their times and keep clear of each other.
class AxisPainter {
 public:
  AxisPainter(QPainter& painter, const TimeSpan& span, const QRect& area, const ReviewLook& look)
      : painter_(painter), span_(span), area_(area), look_(look) {}

  void writeReadout(double time, const QString& text) {
    if (time < span_.from || time > span_.till) return;
    QFont bold = look_.font;
    bold.setBold(true);
    busy_ = placeOf(time, text, bold);
    write(busy_, text, bold);
  }
  void mark(double time, const QString& text) {
    const QColor ink = look_.palette.color(QPalette::WindowText);
    painter_.fillRect(QRectF(std::floor(xOf(time)), area_.bottom() + 1, 1, kTick), ink);
    const Place place = placeOf(time, text, look_.font);
    const bool hidden = place.till + kGap > busy_.from && place.from < busy_.till + kGap;
    if (place.from < free_ || hidden) return;
    write(place, text, look_.font);
    free_ = place.till + kGap;
  }

 private:
  struct Place {
    double from = 1e9;
    double till = -1e9;
  };

  double xOf(double time) const {
    return area_.left() + (time - span_.from) / span_.length() * area_.width();
  }
  /// Also at the ends inside the picture.
  Place placeOf(double time, const QString& text, const QFont& font) const {
    const double wide = QFontMetrics(font).horizontalAdvance(text);
    const double left = std::clamp(xOf(time) - wide / 2, 0.0, std::max(area_.right() + 1 - wide, 0.0));
    return {left, left + wide};
  }
  void write(const Place& place, const QString& text, const QFont& font) {
    painter_.setFont(font);
    painter_.setPen(look_.palette.color(QPalette::WindowText));
    painter_.drawText(QPointF(place.from, area_.bottom() + 1 + kTick + QFontMetrics(font).ascent()), text);
  }

  QPainter& painter_;
  TimeSpan span_;
  QRect area_;
  const ReviewLook& look_;
  Place busy_;  ///< by the readout
  double free_ = -1e9;
};

}  // namespace

TimeAxis::TimeAxis(const ReviewScene& scene, QWidget* parent) : QWidget(parent), scene_(scene) {
  setAccessibleName(tr("Time"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TimeAxis::setPlot(int left, int width) {
  left_ = left;
  width_ = width;
  update();
}

QSize TimeAxis::sizeHint() const { return {200, fontMetrics().height() + kTick + 2}; }

QSize TimeAxis::minimumSizeHint() const { return {1, sizeHint().height()}; }

void TimeAxis::paint(QPainter& painter, const ReviewScene& scene, const QRect& area, const ReviewLook& look) {
  AxisPainter axis(painter, scene.span(), area, look);
  if (const auto time = scene.cursor(ReviewCursor::Readout))
    axis.writeReadout(*time, momentText(scene, *time, look.locale));
  const int line = std::max(QFontMetrics(look.font).height(), 1);
  const int atMost = std::max(area.width() / (5 * line), 1);
  for (const TimeTick& tick : timeTicks(scene.span(), atMost, look.decimalSeparator()))
    axis.mark(tick.time, toQString(tick.text));
}

void TimeAxis::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paint(painter, scene_, QRect(left_, -1, width_, 1), ReviewLook::of(*this));
}

}  // namespace tarnlog
