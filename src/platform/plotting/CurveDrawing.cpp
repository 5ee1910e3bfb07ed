#include "platform/plotting/CurveDrawing.h"

#include <algorithm>
#include <cmath>

#include "platform/plotting/CurvePen.h"

namespace tarnlog {

namespace {

/// The first point of all, and one whose neighbour on the left is a gap. One whose neighbour has been dropped
/// is not.
bool begins(const PlotHistory& points, std::int64_t point) {
  return point == 0 || (point > points.begin() && !std::isfinite(points.y(point - 1)));
}

}  // namespace

void drawTimeCurve(ScrollingCanvas& canvas, const PlotHistory& points, std::int64_t from,
                   const ColumnScale& columns, const PixelScale& rows, std::uint32_t colour) {
  CurvePen pen(canvas, colour);
  std::int64_t point = std::max(from - 1, points.begin());
  double row = 0;
  while (point < points.end()) {
    for (const double value : points.run(point)) {
      const std::int64_t column = columns.columnOf(point);
      if (!std::isfinite(value)) {
        if (pen.isDown() && begins(points, point - 1))
          canvas.dot(columns.columnOf(point - 1), static_cast<int>(row), colour);
        pen.lift();
      } else {
        row = rows(value);
        pen.draw(column, row);
      }
      ++point;
    }
  }
  if (points.end() == 1 && pen.isDown()) canvas.dot(0, static_cast<int>(row), colour);
}

void drawDenseTimeCurve(ScrollingCanvas& canvas, const PlotHistory& points, std::int64_t from,
                        const ColumnScale& columns, const PixelScale& rows, std::uint32_t colour) {
  CurvePen pen(canvas, colour);
  const std::int64_t end = points.end();
  for (std::int64_t first = std::max(from - 1, points.begin()), next = first; first < end; first = next) {
    const std::int64_t column = columns.columnOf(first);
    next = std::clamp(columns.pointIn(column + 1), first + 1, end);
    const Extremes extremes = points.extremes(first, next);
    if (!extremes.any()) {
      pen.lift();
      continue;
    }
    const double entry = points.y(first);
    const bool joined = pen.isDown() && std::isfinite(entry) && std::isfinite(points.y(first - 1));
    if (!joined) pen.lift();
    pen.draw(column, rows(joined ? entry : extremes.lowest));
    pen.cover(static_cast<int>(rows(extremes.lowest)));
    pen.cover(static_cast<int>(rows(extremes.highest)));
    const double exit = points.y(next - 1);
    if (std::isfinite(exit)) pen.draw(column, rows(exit));
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
