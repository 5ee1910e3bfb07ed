#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/plotting/PixelScale.h"
#include "platform/plotting/PlotHistory.h"
#include "platform/plotting/ScrollingCanvas.h"
#include "platform/plotting/TimeLine.h"

namespace tarnlog {

/// The curves of a chart and the grid behind them, as pixels. A time chart that scrolls is drawn where it is
/// new.
class ChartPicture {
 public:
  struct Curve {
    const PlotHistory* points = nullptr;
    PixelScale rows;
    CurveInk ink;  ///< with a rim where the colour is hard to see
  };
  struct Grid {
    std::uint32_t base = 0;
    std::uint32_t line = 0;
    std::span<const double> levels;   ///< rows
    std::span<const double> columns;  ///< of an X-Y graph
    std::int64_t rankStep = 0;        ///< lines that move with the points, as on paper; 0: none
  };
  /// A flag that moves with a point: a line, and a stamp at its right.
  struct Flag {
    double point = 0;
    std::uint32_t colour = 0;
    int dots = 1;  ///< every so many pixels of the line are drawn
    int row = 0;   ///< of the stamp
    Stamp stamp;
  };
  /// A line that stays where it is while points move: over a column from the left edge, with a stamp over its
  /// foot.
  struct Rule {
    int column = 0;
    std::uint32_t colour = 0;
    int stampLeft = 0;
    Stamp stamp;
  };
  struct Scene {
    bool xy = false;
    ColumnScale columns;           ///< of a time chart
    std::int64_t firstColumn = 0;  ///< of a time chart
    PixelScale xColumns;           ///< of an X-Y graph
    std::span<const Curve> curves;
    std::span<const TimeLine::Pause> pauses;
    std::span<const Flag> flags;
    Grid grid;
    int pen = 1;  ///< pixels
  };

  /// All is to be drawn anew when the size is another.
  void resize(int width, int height);
  /// All is to be drawn anew.
  void forget() { stale_ = true; }
  void draw(const Scene& scene);
  const ScrollingCanvas& canvas() const { return canvas_; }
  /// Over the picture until `liftRules`.
  void layRules(std::span<const Rule> rules);
  void liftRules() { canvas_.endOverlay(); }

 private:
  void drawNewColumns(const Scene& scene);
  void drawColumns(const Scene& scene, std::int64_t from, std::int64_t to);
  void drawCurve(const Scene& scene, const Curve& curve, std::int64_t from);
  void drawLine(const Scene& scene, const Curve& curve, std::int64_t from, std::uint32_t colour);
  void drawFlags(const Scene& scene, std::int64_t from);
  void drawGrid(const Scene& scene, std::int64_t from, std::int64_t to);

  ScrollingCanvas canvas_;
  bool stale_ = true;
  std::vector<std::int64_t> drawn_;  ///< of each curve: points before this one are in the canvas
};

}  // namespace tarnlog
