#include "platform/plotting/ChartPicture.h"

#include <algorithm>

#include "platform/plotting/CurveDrawing.h"

namespace tarnlog {
namespace {

constexpr double kPointsOfDenseColumn = 4;
constexpr int kRuleDots = 5;

std::int64_t endOf(std::span<const ChartPicture::Curve> curves) {
  std::int64_t end = 0;
  for (const ChartPicture::Curve& curve : curves) end = std::max(end, curve.points->end());
  return end;
}

}  // namespace

void ChartPicture::resize(int width, int height) {
  if (width == canvas_.width() && height == canvas_.height()) return;
  canvas_.resize(width, height);
  stale_ = true;
}

void ChartPicture::draw(const Scene& scene) {
  canvas_.setPen(scene.pen);
  if (stale_ || scene.xy || drawn_.size() != scene.curves.size()) {
    drawn_.assign(scene.curves.size(), 0);
    canvas_.setFirstColumn(scene.firstColumn);
    drawColumns(scene, canvas_.firstColumn(), canvas_.endColumn());
  } else {
    drawNewColumns(scene);
  }
  stale_ = false;
}

/// And those on their left whose lines go on now: they become what they are in a picture drawn from the
/// start.
void ChartPicture::drawNewColumns(const Scene& scene) {
  const std::int64_t end = endOf(scene.curves);
  std::int64_t first = end;
  for (std::size_t i = 0; i < drawn_.size(); ++i)
    if (drawn_[i] < scene.curves[i].points->end()) first = std::min(first, drawn_[i]);
  canvas_.setFirstColumn(scene.firstColumn);
  const int reach = canvas_.reach();
  drawColumns(scene, scene.columns.columnOf(std::max<std::int64_t>(first - 1, 0)) - reach,
              std::min(scene.columns.columnOf(end) + reach, canvas_.endColumn()));
}

void ChartPicture::drawColumns(const Scene& scene, std::int64_t from, std::int64_t to) {
  canvas_.protectBefore(from);
  drawGrid(scene, std::max(from, canvas_.firstColumn()), to);
  const std::int64_t point = scene.columns.pointIn(from - canvas_.reach());
  for (std::size_t i = 0; i < drawn_.size(); ++i) {
    drawCurve(scene, scene.curves[i], point);
    drawn_[i] = scene.curves[i].points->end();
  }
  drawFlags(scene, from);
}

void ChartPicture::drawFlags(const Scene& scene, std::int64_t from) {
  for (const Flag& flag : scene.flags) {
    const auto column = static_cast<std::int64_t>(flag.point * scene.columns.columnsPerPoint());
    if (column + flag.stamp.width < from || column >= canvas_.endColumn()) continue;
    canvas_.dotted(column, flag.dots, flag.colour);
    canvas_.stamp(column, flag.row, flag.stamp);
  }
}

void ChartPicture::layRules(std::span<const Rule> rules) {
  canvas_.beginOverlay();
  for (const Rule& rule : rules) {
    canvas_.dotted(canvas_.firstColumn() + rule.column, kRuleDots * canvas_.pen(), rule.colour);
    canvas_.stamp(canvas_.firstColumn() + rule.stampLeft, canvas_.height() - rule.stamp.height, rule.stamp);
  }
}

void ChartPicture::drawCurve(const Scene& scene, const Curve& curve, std::int64_t from) {
  if (!scene.xy && scene.columns.columnsPerPoint() * kPointsOfDenseColumn < 1)
    return drawDenseTimeCurve(canvas_, *curve.points, from, {scene.columns, curve.rows, scene.pauses},
                              curve.ink);
  if (curve.ink.rim != 0) {
    canvas_.setHalo(scene.pen);
    drawLine(scene, curve, from, curve.ink.rim);
    canvas_.setHalo(0);
  }
  drawLine(scene, curve, from, curve.ink.colour);
}

void ChartPicture::drawLine(const Scene& scene, const Curve& curve, std::int64_t from, std::uint32_t colour) {
  if (scene.xy)
    drawXYCurve(canvas_, *curve.points, scene.xColumns, curve.rows, colour);
  else
    drawTimeCurve(canvas_, *curve.points, from, {scene.columns, curve.rows, scene.pauses}, colour);
}

void ChartPicture::drawGrid(const Scene& scene, std::int64_t from, std::int64_t to) {
  const Grid& grid = scene.grid;
  canvas_.fillColumns(from, to, grid.base);
  for (const double row : grid.levels) canvas_.row(static_cast<int>(row), from, to, grid.line);
  for (const double column : grid.columns) canvas_.column(static_cast<std::int64_t>(column), grid.line);
  const std::int64_t step = grid.rankStep;
  if (step < 1) return;
  for (std::int64_t rank = scene.columns.pointIn(from) / step * step; scene.columns.columnOf(rank) < to;
       rank += step)
    if (scene.columns.columnOf(rank) >= from) canvas_.column(scene.columns.columnOf(rank), grid.line);
}

}  // namespace tarnlog
