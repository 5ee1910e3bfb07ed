#include "platform/controls/CWGraph.h"

#include <QEvent>
#include <QLocale>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/controls/Readable.h"
#include "platform/plotting/CurveDrawing.h"

namespace tarnlog {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::uint32_t rgb(const QColor& colour) { return colour.rgb() | 0xff000000U; }

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
  for (Plot& plot : plots_) plot.points.setCapacity(history_);
  clearData();
}

void CWGraph::setXY(bool xy) {
  xy_ = xy;
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

int CWGraph::addPlot() {
  plots_.emplace_back();
  plots_.back().points.setCapacity(history_);
  plots_.back().points.setKeepsX(xy_ || plotCount() == 1);  // the moments of all points, in the first plot
  setPlotColour(plotCount(), palette().color(QPalette::Text));
  return plotCount();
}

void CWGraph::setPlotColour(int plot, const QColor& colour) {
  if (plot < 1 || plot > plotCount()) return;
  plots_[static_cast<std::size_t>(plot - 1)].colour = colour;
  chooseColours();
}

QColor CWGraph::colourOf(const Plot& plot) const {
  const QColor base = palette().color(QPalette::Base);
  const QColor own = readableCurve(plot.colour, base);
  return faded_ ? blend(blend(base, palette().color(QPalette::Text), 0.4F), own, 0.2F) : own;
}

void CWGraph::chooseColours() {
  for (Plot& plot : plots_) plot.painted = rgb(colourOf(plot));
  redrawAll();
}

void CWGraph::setFaded(bool faded) {
  if (std::exchange(faded_, faded) != faded) chooseColours();
}

QColor CWGraph::plotColour(int plot) const {
  if (plot < 1 || plot > plotCount()) return {};
  return colourOf(plots_[static_cast<std::size_t>(plot - 1)]);
}

void CWGraph::chartY(int plot, double y, double moment) { append(plot, moment, y); }

void CWGraph::plotXY(int plot, double x, double y) { append(plot, x, y); }

void CWGraph::append(int plot, double x, double y) {
  if (plot < 1 || plot > plotCount()) return;
  plots_[static_cast<std::size_t>(plot - 1)].points.append(x, y);
  if (frozen_) return;
  if (xy_) stale_ = true;
  pacer_.request(plotArea());
}

void CWGraph::clearData() {
  frozen_ = false;
  for (std::size_t i = 0; i < plots_.size(); ++i) {
    plots_[i].held.reset();
    plots_[i].points.setKeepsX(xy_ || i == 0);
  }
  x_.ranks = xy_ ? std::nullopt : std::optional(AxisRange{0, static_cast<double>(history_)});
  for (GraphAxis* const axis : {&x_, &y_}) axis->automatic.reset();
  layOut();
}

void CWGraph::setFrozen(bool frozen) {
  if (frozen_ == frozen) return;
  if (frozen) followPoints();
  frozen_ = frozen;
  for (Plot& plot : plots_) plot.held = frozen ? std::optional(plot.points) : std::nullopt;
  redrawAll();
}

void CWGraph::layOut() {
  outline_.layOut(size(), fontMetrics(), locale(), x_, y_);
  redrawAll();
}

void CWGraph::redrawAll() {
  stale_ = true;
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
  std::int64_t first = endPoint();
  for (const Plot& plot : plots_)
    if (plot.shown().begin() < plot.shown().end()) first = std::min(first, plot.shown().begin());
  return first;
}

double CWGraph::valueOf(int plot, std::int64_t point) const {
  const PlotHistory* const points = shown(plot);
  const bool kept = points != nullptr && point >= points->begin() && point < points->end();
  return kept ? points->y(point) : kNone;
}

double CWGraph::xValueOf(int plot, std::int64_t point) const {
  const PlotHistory* const points = shown(plot);
  const bool kept = xy_ && points != nullptr && point >= points->begin() && point < points->end();
  return kept ? points->x(point) : kNone;
}

double CWGraph::momentOf(std::int64_t point) const {
  const PlotHistory* const points = shown(1);
  const bool kept = !xy_ && points != nullptr && point >= points->begin() && point < points->end();
  return kept ? points->x(point) : 0;
}

/// Of a time chart, from the left edge of the plot area; as the curves are drawn.
double CWGraph::chartX(std::int64_t point) const {
  const double wide = plotArea().width();
  const std::int64_t end = endPoint();
  if (end <= history_) return static_cast<double>(point) * wide / history_;
  return wide - 1 - static_cast<double>(end - 1 - point) * wide / history_;
}

QPointF CWGraph::placeOf(int plot, std::int64_t point) const {
  const QRectF area = plotArea();
  const auto inside = [](double part, double length) {
    const double most = std::max(length - 1, 0.0);
    return std::isnan(part) ? 0.0 : std::clamp(part * most, 0.0, most);
  };
  const double x =
      xy_ ? inside((xValueOf(plot, point) - x_.range().minimum) / x_.range().span(), area.width())
          : std::clamp(chartX(point), 0.0, area.width() - 1);
  const double y = (y_.range().maximum - valueOf(plot, point)) / y_.range().span();
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
  const double spacing = static_cast<double>(plotArea().width()) / history_;
  const std::int64_t point = std::llround((x - chartX(0)) / spacing);
  if (end <= history_ && point >= end) return -1;
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

std::int64_t CWGraph::firstColumn() const {
  const std::int64_t end = endPoint();
  return xy_ || end <= history_ ? 0 : columns_.columnOf(end - 1) - canvas_.width() + 1;
}

bool CWGraph::followPoints() {
  bool changed = false;
  for (GraphAxis* const axis : {&x_, &y_}) {
    if (!axis->follows()) continue;
    Extremes all;
    for (const Plot& plot : plots_)
      all.add(axis == &x_ ? plot.shown().extremesOfX() : plot.shown().extremes());
    changed |= axis->automatic.follow(all.lowest, all.highest);
  }
  return changed;
}

void CWGraph::prepareCanvas() {
  if (!frozen_ && followPoints()) {
    outline_.renumber(fontMetrics(), locale(), x_, y_);
    redrawAll();  // the numbers may lie outside of what is painted now
  }
  const QRect area = plotArea();
  const qreal ratio = devicePixelRatio();
  const int wide = qRound((area.x() + area.width()) * ratio) - qRound(area.x() * ratio);
  const int high = qRound((area.y() + area.height()) * ratio) - qRound(area.y() * ratio);
  if (wide != canvas_.width() || high != canvas_.height()) {
    canvas_.resize(wide, high);
    stale_ = true;
  }
  if (stale_)
    drawAll();
  else
    drawNewColumns();
  stale_ = false;
}

void CWGraph::drawAll() {
  canvas_.setPen(qRound(devicePixelRatio()));
  const int rows = canvas_.height() - canvas_.pen() + 1;
  rows_ = PixelScale::downwards(y_.range(), rows);
  xColumns_ = PixelScale(x_.range(), canvas_.width());
  columns_ = ColumnScale(canvas_.width(), history_);
  canvas_.setFirstColumn(firstColumn());
  drawColumns(canvas_.firstColumn(), canvas_.endColumn());
}

/// And those on their left whose lines go on now: they become what they are in a picture drawn from the
/// start.
void CWGraph::drawNewColumns() {
  std::int64_t first = endPoint();
  for (const Plot& plot : plots_)
    if (plot.drawn < plot.shown().end()) first = std::min(first, plot.drawn);
  canvas_.setFirstColumn(firstColumn());
  const int reach = canvas_.reach();
  drawColumns(columns_.columnOf(std::max<std::int64_t>(first - 1, 0)) - reach,
              std::min(columns_.columnOf(endPoint()) + reach, canvas_.endColumn()));
}

void CWGraph::drawColumns(std::int64_t from, std::int64_t to) {
  canvas_.protectBefore(from);
  drawGrid(std::max(from, canvas_.firstColumn()), to);
  const std::int64_t point = columns_.pointIn(from - canvas_.reach());
  for (Plot& plot : plots_) {
    drawCurve(plot, point);
    plot.drawn = plot.shown().end();
  }
}

void CWGraph::drawCurve(const Plot& plot, std::int64_t from) {
  const PlotHistory& points = plot.shown();
  if (xy_)
    drawXYCurve(canvas_, points, xColumns_, rows_, plot.painted);
  else if (history_ > 4 * canvas_.width())
    drawDenseTimeCurve(canvas_, points, from, columns_, rows_, plot.painted);
  else
    drawTimeCurve(canvas_, points, from, columns_, rows_, plot.painted);
}

void CWGraph::drawGrid(std::int64_t from, std::int64_t to) {
  const QColor base = palette().color(QPalette::Base);
  const std::uint32_t grid = rgb(blend(base, palette().color(QPalette::Text), 0.16F));
  canvas_.fillColumns(from, to, rgb(base));
  const AxisTicks& levels = outline_.yTicks();
  for (int i = 0; y_.grid && i < levels.count; ++i)
    canvas_.row(static_cast<int>(rows_(levels.at(i))), from, to, grid);
  if (!x_.grid) return;
  const AxisTicks& marks = outline_.xTicks();
  if (xy_) {
    for (int i = 0; i < marks.count; ++i)
      canvas_.column(static_cast<std::int64_t>(xColumns_(marks.at(i))), grid);
    return;
  }
  // Lines at ranks: they move with the points, as on paper.
  const auto step = std::max<std::int64_t>(std::llround(marks.step), 1);
  for (std::int64_t rank = columns_.pointIn(from) / step * step; columns_.columnOf(rank) < to; rank += step)
    if (columns_.columnOf(rank) >= from) canvas_.column(columns_.columnOf(rank), grid);
}

void CWGraph::paintEvent(QPaintEvent* event) {
  if (width() < 1 || height() < 1) return;
  prepareCanvas();
  QPainter painter(this);
  if (!plotArea().contains(event->rect())) paintAround(painter);
  paintCanvas(painter);
}

void CWGraph::paintAround(QPainter& painter) {
  const QRect area = plotArea();
  const QColor window = palette().color(QPalette::Window);
  painter.fillRect(0, 0, width(), area.top(), window);
  painter.fillRect(0, area.bottom() + 1, width(), height() - area.bottom() - 1, window);
  painter.fillRect(0, area.top(), area.left(), area.height(), window);
  painter.fillRect(area.right() + 1, area.top(), width() - area.right() - 1, area.height(), window);
  painter.setPen(palette().color(QPalette::WindowText));
  const QColor border = blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.45F);
  outline_.paint(painter, hasFocus() ? palette().color(QPalette::Highlight) : border);
}

/// In the screen's own pixels, in the two pieces that the canvas keeps.
void CWGraph::paintCanvas(QPainter& painter) {
  const qreal ratio = devicePixelRatio();
  const QPoint corner(qRound(plotArea().left() * ratio), qRound(plotArea().top() * ratio));
  const QImage image(reinterpret_cast<const uchar*>(canvas_.pixels()), canvas_.width(), canvas_.height(),
                     canvas_.width() * 4, QImage::Format_RGB32);
  const int seam = canvas_.seam();
  const int rest = canvas_.width() - seam;
  painter.scale(1 / ratio, 1 / ratio);
  painter.drawImage(corner, image, QRect(seam, 0, rest, canvas_.height()));
  if (seam > 0) painter.drawImage(corner + QPoint(rest, 0), image, QRect(0, 0, seam, canvas_.height()));
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
