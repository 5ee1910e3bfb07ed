#include "platform/controls/CWGraph.h"

#include <QEvent>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/controls/Readable.h"

namespace tarnlog {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kMostMarks = 1000;  ///< more are not told apart
constexpr float kRim = 0.7F;              ///< of the text's colour over the base

}  // namespace

CWGraph::CWGraph(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  x_.labels = false;
  x_.ranks = AxisRange{0, static_cast<double>(history_)};
}

void CWGraph::setTitle(const QString& title) {
  setAccessibleName(title);
  setToolTip(title);
}

void CWGraph::setHistory(int points) {
  history_ = std::clamp(points, 1, static_cast<int>(PlotHistory::kMostPoints));
  keepPoints();
  clearData();
}

void CWGraph::setKept(int points) {
  if (std::exchange(kept_, points) != points) keepPoints();
}

void CWGraph::keepPoints() {
  const std::int32_t capacity = xy_ ? history_ : std::max(history_, kept_);
  for (Plot& plot : plots_) plot.points.setCapacity(capacity);
  times_.setCapacity(capacity);
}

void CWGraph::setXY(bool xy) {
  xy_ = xy;
  keepPoints();
  clearData();
}

void CWGraph::setAxisRange(AxisId axis, double minimum, double maximum) {
  axisOf(axis).fixed = saneRange(minimum, maximum);
  axisOf(axis).autoscale = false;
  layOut();
}

void CWGraph::setAxisAutoscale(AxisId axis, bool on) {
  axisOf(axis).autoscale = on;
  axisOf(axis).automatic.reset();
  layOut();
}

void CWGraph::setAxisCaption(AxisId axis, const QString& caption) {
  axisOf(axis).caption = caption;
  layOut();
}

void CWGraph::setAxisLabels(AxisId axis, bool labels) {
  axisOf(axis).labels = labels;
  layOut();
}

void CWGraph::setAxisGrid(AxisId axis, bool grid) {
  axisOf(axis).grid = grid;
  layOut();
}

void CWGraph::setAxisBinary(AxisId axis, bool binary) {
  axisOf(axis).binary = binary;
  layOut();
}

void CWGraph::setValueNames(std::vector<std::pair<double, QString>> names) {
  std::sort(names.begin(), names.end());
  if (y_.names == names) return;
  y_.names = std::move(names);
  layOut();
}

int CWGraph::addPlot() {
  plots_.emplace_back();
  plots_.back().points.setKeepsX(xy_);
  keepPoints();
  if (frozen_) plots_.back().held = plots_.back().points;
  setPlotColour(plotCount(), palette().color(QPalette::Text));
  return plotCount();
}

void CWGraph::setPlotColour(int plot, const QColor& colour) {
  if (plot < 1 || plot > plotCount()) return;
  plots_[static_cast<std::size_t>(plot - 1)].colour = colour;
  chooseColours();
}

void CWGraph::chooseColours() {
  const QColor base = palette().color(QPalette::Base);
  const QColor text = palette().color(QPalette::Text);
  const double enough = isDark(base) ? kCurveContrastOnDark : kCurveContrast;
  for (Plot& plot : plots_) {
    plot.painted = (faded_ ? blend(blend(base, text, 0.4F), plot.colour, 0.2F) : plot.colour).rgb();
    plot.rim = !faded_ && contrastOf(plot.colour, base) < enough ? blend(base, text, kRim).rgb() : 0;
  }
  redrawAll();
}

void CWGraph::setFaded(bool faded) {
  if (std::exchange(faded_, faded) != faded) chooseColours();
}

QColor CWGraph::plotColour(int plot) const {
  if (plot < 1 || plot > plotCount()) return {};
  return QColor::fromRgb(plots_[static_cast<std::size_t>(plot - 1)].painted);
}

void CWGraph::chartY(int plot, double y, double moment) { append(plot, moment, y); }

void CWGraph::plotXY(int plot, double x, double y) { append(plot, x, y); }

void CWGraph::append(int plot, double x, double y) {
  if (plot < 1 || plot > plotCount()) return;
  Plot& to = plots_[static_cast<std::size_t>(plot - 1)];
  to.points.append(x, y);
  if (plot == 1 && !xy_) times_.append(x);
  if (frozen_) {
    // What comes now takes the room of what is looked back at, but not of what was shown.
    const std::int64_t oldest = std::min(to.points.begin(), to.held->end() - history_);
    to.held->dropBefore(oldest);
    if (plot == 1 && heldTimes_) heldTimes_->dropBefore(oldest);
    return;
  }
  pacer_.request(plotArea());
}

void CWGraph::clearData() {
  frozen_ = false;
  view_.reset();
  for (Plot& plot : plots_) {
    plot.held.reset();
    plot.points.setKeepsX(xy_);
  }
  times_.clear();
  heldTimes_.reset();
  marks_.clear();
  cursors_.fill(-1);
  x_.ranks = xy_ ? std::nullopt : std::optional(AxisRange{0, static_cast<double>(history_)});
  x_.automatic.reset();
  forgetScales();
  layOut();
}

void CWGraph::setFrozen(bool frozen) {
  if (frozen_ == frozen) return;
  frozen_ = frozen;
  for (Plot& plot : plots_) plot.held = frozen ? std::optional(plot.points) : std::nullopt;
  heldTimes_ = frozen ? std::optional(times_) : std::nullopt;
  if (view_) forgetScales();  // they were those of a look back
  view_.reset();
  follow();
  layOut();
}

void CWGraph::addMark(const QString& text, const QColor& colour) {
  const std::int64_t newest = times_.end() - 1;
  if (xy_ || newest < 0) return;
  std::erase_if(marks_, [oldest = keptPoints().begin](const GraphMark& mark) { return mark.point < oldest; });
  if (marks_.size() == kMostMarks) marks_.erase(marks_.begin());
  marks_.push_back({newest, text, colour});
  if (!frozen_) pacer_.request(plotArea());
}

void CWGraph::setTimeGrid(bool on) {
  if (std::exchange(timeGrid_, on) != on) redrawAll();
}

void CWGraph::setTimeLabels(bool on) {
  if (overlay_.labels() == on) return;
  overlay_.setLabels(on);
  update(plotArea());
}

void CWGraph::setOwnScales(bool own) {
  if (std::exchange(ownScales_, own) == own) return;
  if (own) follow();
  if (!own) y_.chosen.reset();
  layOut();
}

void CWGraph::chooseScale(int plot) {
  if (std::exchange(chosen_, plot) == plot) return;
  if (ownScales_) follow();
  layOut();
}

void CWGraph::setThickCurves(bool thick) {
  if (std::exchange(thick_, thick) != thick) redrawAll();
}

void CWGraph::setView(const std::optional<TimeView>& view) {
  if (!frozen_ || xy_) return;
  view_ = view;
  forgetScales();
  follow();
  layOut();
}

TimeView CWGraph::view() const {
  if (view_) return *view_;
  const auto count = static_cast<double>(history_);
  return {std::max(static_cast<double>(endPoint()) - count, 0.0), count};
}

PointSpan CWGraph::keptPoints() const {
  PointSpan kept{endPoint(), endPoint()};
  for (const Plot& plot : plots_) kept.begin = std::min(kept.begin, plot.shown().begin());
  return kept;
}

void CWGraph::layOut() {
  outline_.layOut(size(), fontMetrics(), locale(), x_, y_);
  redrawAll();
}

void CWGraph::redrawAll() {
  picture_.forget();
  update();
}

const PlotHistory* CWGraph::shown(int plot) const {
  return plot < 1 || plot > plotCount() ? nullptr : &plots_[static_cast<std::size_t>(plot - 1)].shown();
}

std::int64_t CWGraph::endPoint() const {
  std::int64_t end = 0;
  for (const Plot& plot : plots_) end = std::max(end, plot.shown().end());
  return end;
}

std::int64_t CWGraph::firstPoint() const {
  const TimeView shows = view();
  return std::clamp(static_cast<std::int64_t>(std::ceil(shows.first)), keptPoints().begin, endPoint());
}

std::int64_t CWGraph::endShown() const {
  return std::min(endPoint(), static_cast<std::int64_t>(std::ceil(view().last())));
}

double CWGraph::valueOf(int plot, std::int64_t point) const {
  const PlotHistory* const points = shown(plot);
  return points != nullptr && points->has(point) ? points->y(point) : kNone;
}

double CWGraph::xValueOf(int plot, std::int64_t point) const {
  const PlotHistory* const points = shown(plot);
  return xy_ && points != nullptr && points->has(point) ? points->x(point) : kNone;
}

Summary CWGraph::summaryOf(int plot, std::int64_t first, std::int64_t end) const {
  const PlotHistory* const points = shown(plot);
  return points == nullptr ? Summary() : points->ys().summary(first, end);
}

/// As the curves are drawn.
double CWGraph::chartX(double point) const {
  const double wide = plotArea().width();
  if (view_) return (point - view_->first) * wide / view_->count;
  const std::int64_t end = endPoint();
  if (end <= history_) return point * wide / history_;
  return wide - 1 - (static_cast<double>(end - 1) - point) * wide / history_;
}

double CWGraph::pointAtX(double x) const { return (x - chartX(0)) / (chartX(1) - chartX(0)); }

QPointF CWGraph::placeOf(int plot, std::int64_t point) const {
  const QRectF area = plotArea();
  const auto inside = [](double part, double length) {
    const double most = std::max(length - 1, 0.0);
    return std::isnan(part) ? 0.0 : std::clamp(part * most, 0.0, most);
  };
  const double x =
      xy_ ? inside((xValueOf(plot, point) - x_.range().minimum) / x_.range().span(), area.width())
          : std::clamp(chartX(static_cast<double>(point)), 0.0, area.width() - 1);
  const bool own = ownScales_ && plot >= 1 && plot <= plotCount();
  const AxisRange range = own ? plots_[static_cast<std::size_t>(plot - 1)].scale.range() : y_.range();
  const double y = (range.maximum - valueOf(plot, point)) / range.span();
  return {area.left() + x, area.top() + inside(y, area.height())};
}

double CWGraph::distanceTo(const QPoint& position, int plot, std::int64_t point) const {
  if (!std::isfinite(valueOf(plot, point)) || !std::isfinite(xValueOf(plot, point))) return kNone;
  const QPointF way = placeOf(plot, point) - position;
  return QPointF::dotProduct(way, way);
}

std::int64_t CWGraph::pointAt(const QPoint& position) const {
  const QRect area = plotArea();
  if (endPoint() == 0 || position.x() < area.left() || position.x() > area.right()) return -1;
  return xy_ ? nearestPoint(position) : chartPoint(position.x() - area.left());
}

std::int64_t CWGraph::chartPoint(int x) const {
  const std::int64_t end = endPoint();
  const std::int64_t point = std::llround(pointAtX(x));
  if (!view_ && end <= history_ && point >= end) return -1;
  return std::clamp(point, firstPoint(), end - 1);
}

std::int64_t CWGraph::nearestPoint(const QPoint& position) const {
  std::int64_t found = -1;
  double least = std::numeric_limits<double>::infinity();
  for (int plot = 1; plot <= plotCount(); ++plot) {
    for (std::int64_t point = firstPoint(); point < endPoint(); ++point) {
      const double distance = distanceTo(position, plot, point);
      if (!(distance < least)) continue;
      least = distance;
      found = point;
    }
  }
  return found;
}

void CWGraph::resizeEvent(QResizeEvent* event) {
  layOut();
  QWidget::resizeEvent(event);
}

void CWGraph::changeEvent(QEvent* event) {
  chooseColours();  // palette, font, locale, enabled
  layOut();
  QWidget::changeEvent(event);
}

}  // namespace tarnlog
