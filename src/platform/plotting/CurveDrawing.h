#pragma once

#include <cstdint>
#include <span>

#include "platform/plotting/PixelScale.h"
#include "platform/plotting/PlotHistory.h"
#include "platform/plotting/ScrollingCanvas.h"
#include "platform/plotting/TimeLine.h"

/// Curves on a canvas. A value that is not finite makes a gap; a value between gaps is a dot.
namespace tarnlog {

/// Where a curve of a time chart goes.
struct TimeCurvePlace {
  const ColumnScale& columns;
  const PixelScale& rows;
  std::span<const TimeLine::Pause> pauses;  ///< the curve is broken there
};

/// The points of a time chart from number `from`, each with a line from the one before it.
void drawTimeCurve(ScrollingCanvas& canvas, const PlotHistory& points, std::int64_t from,
                   const TimeCurvePlace& place, std::uint32_t colour);
/// The same for a chart that has many points in a column: at the cost of the columns. The rim is drawn with
/// it.
void drawDenseTimeCurve(ScrollingCanvas& canvas, const PlotHistory& points, std::int64_t from,
                        const TimeCurvePlace& place, const CurveInk& ink);
/// All points (x, y), in their order, with a dot at the newest.
void drawXYCurve(ScrollingCanvas& canvas, const PlotHistory& points, const PixelScale& columns,
                 const PixelScale& rows, std::uint32_t colour);

}  // namespace tarnlog
