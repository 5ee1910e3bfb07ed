#include "ui/review/GraphSheet.h"

#include <algorithm>
#include <cmath>

#include "platform/plotting/Autoscale.h"
#include "platform/plotting/PixelScale.h"
#include "ui/common/Convert.h"
#include "ui/review/TimeTicks.h"

/// How a graph is laid out and scaled; how it is painted stands in GraphSheetPainting.cpp.
namespace tarnlog {
namespace {

constexpr int kLaneGap = 3;
constexpr int kAnyHeight = 100'000;
constexpr int kLinesOfPlot = 4;  ///< that a legend leaves below it
constexpr double kNear = 20;     ///< pixels

QString nameWithUnit(const ReviewScene& scene, const CurvePlace& place) {
  const QString unit = toQString(scene.column(place).about.unit);
  return unit.isEmpty() ? dataName(scene, place) : dataName(scene, place) + " [" + unit + "]";
}

AxisRange rangeOf(double lowest, double highest) {
  Autoscale scale;
  scale.follow(lowest, highest);
  return scale.range();
}

}  // namespace

int GraphSheet::leastHeight(const ReviewScene& scene, std::size_t graph, int width, const ReviewLook& look,
                            bool clickable, int lines) {
  const ReviewGraph& shown = scene.graphs()[graph];
  const int line = QFontMetrics(look.font).height();
  GraphLegend legend;
  legend.layOut(scene, graph, {width, kAnyHeight}, look, clickable);
  if (shown.kind == GraphKind::States)
    return legend.height() + static_cast<int>(shown.curves.size()) * (2 * line + kLaneGap + 4) + 4;
  const int below = shown.kind == GraphKind::XY ? 3 * line : 0;
  return std::max(legend.height(), line) + lines * line + below;
}

void GraphSheet::layOut(const ReviewScene& scene, std::size_t graph, const QSize& size,
                        const ReviewLook& look, bool clickable) {
  scene_ = &scene;
  graph_ = graph;
  size_ = size;
  look_ = look;
  clickable_ = clickable;
  layOutLegend();
  numberAxes();
}

void GraphSheet::layOutLegend() {
  const int plot = kLinesOfPlot * QFontMetrics(look_.font).height();
  const int room = std::max(size_.height() - plot, size_.height() / 3);
  legend_.layOut(*scene_, graph_, {size_.width(), room}, look_, clickable_);
}

void GraphSheet::numberAxes() {
  const QFontMetrics metrics(look_.font);
  x_.labels = graph().kind == GraphKind::XY;
  x_.caption = graph().x ? nameWithUnit(*scene_, *graph().x) : QString();
  frame_.layOut({size_.width(), size_.height() - legend_.height()}, metrics, look_.locale, x_, y_);
  area_ = frame_.plotArea().translated(0, legend_.height());
  if (hasBars()) layOutLanes();
}

void GraphSheet::layOutLanes() {
  lanes_.resize(graph().curves.size());
  const int line = QFontMetrics(look_.font).height();
  const int count = std::max(static_cast<int>(lanes_.size()), 1);
  for (int i = 0; i < static_cast<int>(lanes_.size()); ++i) {
    Lane& lane = lanes_[static_cast<std::size_t>(i)];
    const int top = area_.top() + area_.height() * i / count;
    const int high = area_.height() * (i + 1) / count - area_.height() * i / count;
    const int name = high >= 2 * line ? line : 0;
    lane.name = QRect(area_.left() + kLaneGap, top, std::max(area_.width() - 2 * kLaneGap, 0),
                      name > 0 ? line : high);
    lane.bar = QRect(area_.left(), top + name, area_.width(),
                     std::max(std::min(high - name - kLaneGap, line + 4), 2));
  }
}

double GraphSheet::timeAt(double x) const {
  const TimeSpan& span = scene_->span();
  return span.from + (x - area_.left()) * span.length() / std::max(area_.width(), 1);
}

double GraphSheet::xOf(double time) const {
  const TimeSpan& span = scene_->span();
  return area_.left() + (time - span.from) / span.length() * area_.width();
}

std::optional<double> GraphSheet::timeNear(const QPoint& position) const {
  const PixelScale columns(x_.range(), area_.width());
  double least = kNear * kNear;
  std::optional<double> found;
  for (std::size_t i = 0; i < traces_.size(); ++i) {
    const PixelScale rows = PixelScale::downwards(ranges_[i], area_.height());
    const CurveTrace& trace = traces_[i];
    for (std::size_t k = 0; k < trace.times.size() && k < trace.points.size(); ++k) {
      const QPointF way =
          QPointF(columns(trace.points[k].x), rows(trace.points[k].y)) + area_.topLeft() - position;
      const double distance = QPointF::dotProduct(way, way);
      if (std::isnan(trace.points[k].y) || distance >= least) continue;
      least = distance;
      found = trace.times[k];
    }
  }
  return found;
}

std::optional<std::size_t> GraphSheet::laneAt(const QPoint& position) const {
  if (!hasBars() || !area_.contains(position)) return std::nullopt;
  for (std::size_t i = 0; i < lanes_.size(); ++i)
    if (position.y() <= lanes_[i].bar.bottom() + kLaneGap) return i;
  return std::nullopt;
}

bool GraphSheet::isOnLaneName(const QPoint& position) const {
  return hasBars() &&
         std::ranges::any_of(lanes_, [&](const Lane& lane) { return lane.name.contains(position); });
}

void GraphSheet::see(SeenRecords& seen, int columns) {
  columns_ = std::max(columns, 1);
  seen.see({scene_->span(), columns_});
  const auto& curves = graph().curves;
  if (hasBars()) {
    for (std::size_t i = 0; i < curves.size() && i < lanes_.size(); ++i)
      lanes_[i].bands = statesOverTime(*scene_, curves[i].place, seen);
    return;
  }
  traces_.resize(curves.size());
  for (std::size_t i = 0; i < curves.size(); ++i) {
    if (graph().kind == GraphKind::XY && graph().x)
      traceOverValues(*scene_, curves[i], *graph().x, seen, traces_[i]);
    else
      traceOverTime(*scene_, curves[i], seen, traces_[i]);
  }
  scale();
}

void GraphSheet::scale() {
  CurveTrace all;
  ranges_.clear();
  for (const CurveTrace& trace : traces_) {
    all.see(trace.lowest, trace.highest);
    ranges_.push_back(rangeOf(trace.lowest, trace.highest));
  }
  const AxisRange common = rangeOf(all.lowest, all.highest);
  const bool own = graph().ownScales && graph().axis < ranges_.size();
  y_.chosen = own ? ranges_[graph().axis] : common;
  if (!graph().ownScales) std::ranges::fill(ranges_, common);
  y_.names.clear();
  if (graph().curves.size() == 1 && !graph().curves[0].minus)
    for (const RecordLabel& label : scene_->column(graph().curves[0].place).about.labels)
      if (label.from == label.till) y_.names.emplace_back(label.from, toQString(label.text));
  std::ranges::sort(y_.names);
  if (graph().kind == GraphKind::XY) scaleAlong();
  frame_.renumber(QFontMetrics(look_.font), look_.locale, x_, y_);
}

void GraphSheet::scaleAlong() {
  CurveTrace along;
  for (const CurveTrace& trace : traces_)
    for (const CurveTrace::Point& point : trace.points)
      if (!std::isnan(point.y)) along.see(point.x, point.x);
  x_.chosen = rangeOf(along.lowest, along.highest);
}

/// From the left edge of the plot area.
std::vector<double> GraphSheet::timeLines() const {
  const int line = std::max(QFontMetrics(look_.font).height(), 1);
  std::vector<double> lines;
  for (const TimeTick& tick : timeTicks(scene_->span(), std::max(area_.width() / (5 * line), 1), '.'))
    lines.push_back(xOf(tick.time) - area_.left());
  return lines;
}

}  // namespace tarnlog
