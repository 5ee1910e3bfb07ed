#include "platform/plotting/CurveDrawing.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "platform/plotting/CurvePen.h"

namespace tarnlog {

namespace {

/// The first point of all, and one whose neighbour on the left is a gap. One whose neighbour has been dropped
/// is not.
bool begins(const PlotHistory& points, std::int64_t point) {
  return point == 0 || (point > points.begin() && !std::isfinite(points.y(point - 1)));
}

/// Tells, for points in their order, before which one the curve is broken.
class Breaks {
 public:
  Breaks(std::span<const TimeLine::Pause> pauses, std::int64_t from)
      : next_(std::partition_point(pauses.begin(), pauses.end(),
                                   [from](auto& each) { return each.before < from; })),
        end_(pauses.end()) {}
  bool before(std::int64_t point) {
    while (next_ != end_ && next_->before < point) ++next_;
    return next_ != end_ && next_->before == point;
  }

 private:
  std::span<const TimeLine::Pause>::iterator next_;
  std::span<const TimeLine::Pause>::iterator end_;
};

}  // namespace

void drawTimeCurve(ScrollingCanvas& canvas, const PlotHistory& points, std::int64_t from,
                   const TimeCurvePlace& place, std::uint32_t colour) {
  CurvePen pen(canvas, {colour});
  std::int64_t point = std::max(from - 1, points.begin());
  Breaks breaks(place.pauses, point);
  double row = 0;
  bool alone = false;  // nothing before the point is joined to it
  const auto lift = [&] {
    if (pen.isDown() && alone) canvas.dot(place.columns.columnOf(point - 1), static_cast<int>(row), colour);
    pen.lift();
  };
  while (point < points.end()) {
    for (const double value : points.run(point)) {
      const bool broken = breaks.before(point);
      if (broken) lift();
      if (!std::isfinite(value)) {
        lift();
      } else {
        alone = !pen.isDown() && (broken || begins(points, point));
        row = place.rows(value);
        const std::int64_t column = place.columns.columnOf(point);
        pen.draw(column, row);
        if (column > canvas.endColumn() + canvas.reach()) return;
      }
      ++point;
    }
  }
  if (points.end() == 1 && pen.isDown()) canvas.dot(0, static_cast<int>(row), colour);
}

void drawDenseTimeCurve(ScrollingCanvas& canvas, const PlotHistory& points, std::int64_t from,
                        const TimeCurvePlace& place, const CurveInk& ink) {
  const ColumnScale& columns = place.columns;
  // Where a column has several blocks, a block belongs to one of them as a whole, and no value is looked at.
  const std::int64_t block = PointSeries::blockWithin(1 / columns.columnsPerPoint() / 2);
  const bool coarse = block > 1;
  const auto whole = [block](std::int64_t point) { return (point + block - 1) & -block; };
  const auto goesOn = [&](std::int64_t point) {
    return coarse || (std::isfinite(points.y(point)) && std::isfinite(points.y(point - 1)));
  };
  CurvePen pen(canvas, ink);
  const std::int64_t end = points.end();
  std::int64_t first = std::min(whole(std::max(from - 1, points.begin())), end);
  Breaks breaks(place.pauses, first);
  std::int64_t column = columns.columnOf(first);
  for (std::int64_t next = first; first < end && column < canvas.endColumn(); first = next, ++column) {
    next = std::clamp(whole(columns.firstFrom(column + 1)), first, end);
    if (next == first) continue;
    const Extremes extremes =
        coarse ? points.ys().extremesOfBlocks(first, next, block) : points.extremes(first, next);
    if (!extremes.any() || breaks.before(first) || (pen.isDown() && !goesOn(first))) pen.lift();
    if (extremes.any())
      pen.band(column, {static_cast<int>(place.rows(extremes.highest)),
                        static_cast<int>(place.rows(extremes.lowest))});
  }
}

void drawXYCurve(ScrollingCanvas& canvas, const PlotHistory& points, const PixelScale& columns,
                 const PixelScale& rows, std::uint32_t colour) {
  bool joined = false;
  double lastX = 0;
  double lastY = 0;
  for (std::int64_t point = points.begin(); point < points.end(); ++point) {
    const double valueX = points.x(point);
    const double valueY = points.y(point);
    if (!std::isfinite(valueX) || !std::isfinite(valueY)) {
      joined = false;
      continue;
    }
    const double x = columns(valueX);
    const double y = rows(valueY);
    canvas.line(joined ? lastX : x, joined ? lastY : y, x, y, colour);
    if (point == points.end() - 1) canvas.dot(static_cast<std::int64_t>(x), static_cast<int>(y), colour);
    joined = true;
    lastX = x;
    lastY = y;
  }
}

}  // namespace tarnlog
