#include "platform/controls/CWGraph.h"

#include <QEvent>
#include <QLocale>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/controls/Readable.h"

namespace tarnlog {
namespace {

constexpr double kFarAway = 1e7;  ///< pixels; beyond, slopes no longer matter
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::uint32_t rgb(const QColor& colour) { return colour.rgb() | 0xff000000U; }

double limited(double pixel) { return std::clamp(pixel, -kFarAway, kFarAway); }

}  // namespace

CWGraph::CWGraph(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  axes_[0].labels = false;
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
  settings(axis).fixed = saneRange(minimum, maximum);
  settings(axis).autoscale = false;
  redrawAll();
}

void CWGraph::setAxisAutoscale(AxisId axis, bool on) {
  settings(axis).autoscale = on;
  settings(axis).automatic.reset();
  redrawAll();
}

void CWGraph::setAxisCaption(AxisId axis, const QString& caption) {
  settings(axis).caption = caption;
  redrawAll();
}

void CWGraph::setAxisLabels(AxisId axis, bool labels) {
  settings(axis).labels = labels;
  redrawAll();
}

void CWGraph::setAxisGrid(AxisId axis, bool grid) {
  settings(axis).grid = grid;
  redrawAll();
}

void CWGraph::setAxisBinary(AxisId axis, bool binary) {
  settings(axis).binary = binary;
  redrawAll();
}

int CWGraph::addPlot() {
  plots_.emplace_back();
  plots_.back().points.setCapacity(history_);
  plots_.back().points.setKeepsX(xy_ || plotCount() == 1);  // the moments of all points, in the first plot
  plots_.back().colour = palette().color(QPalette::Text);
  return plotCount();
}

void CWGraph::setPlotColour(int plot, const QColor& colour) {
  if (plot < 1 || plot > plotCount()) return;
  plots_[static_cast<std::size_t>(plot - 1)].colour = colour;
  redrawAll();
}

QColor CWGraph::plotColour(int plot) const {
  if (plot < 1 || plot > plotCount()) return {};
  return readableCurve(plots_[static_cast<std::size_t>(plot - 1)].colour, palette().color(QPalette::Base));
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
  for (AxisSettings& axis : axes_) axis.automatic.reset();
  redrawAll();
}

void CWGraph::setFrozen(bool frozen) {
  if (frozen_ == frozen) return;
  if (frozen) followPoints();
  frozen_ = frozen;
  for (Plot& plot : plots_) plot.held = frozen ? std::optional(plot.points) : std::nullopt;
  redrawAll();
}

void CWGraph::redrawAll() {
  stale_ = frameStale_ = true;
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

double CWGraph::valueAt(int plot, int x) const {
  const std::int64_t point = xy_ ? -1 : pointAt(QPoint(x, plotArea().top()));
  return point < 0 ? kNone : valueOf(plot, point);
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
      xy_ ? inside((xValueOf(plot, point) - range(XAxis).minimum) / range(XAxis).span(), area.width())
          : std::clamp(chartX(point), 0.0, area.width() - 1);
  const double y = (range(YAxis).maximum - valueOf(plot, point)) / range(YAxis).span();
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

AxisRange CWGraph::range(AxisId axis) const {
  if (axis == XAxis && !xy_) return {0, static_cast<double>(history_)};
  return settings(axis).autoscale ? settings(axis).automatic.range() : settings(axis).fixed;
}

QRect CWGraph::plotArea() const {
  const int line = fontMetrics().height();
  const bool yLabels = settings(YAxis).labels && width() > 4 * line * 2 && height() >= line;
  const bool xLabels = settings(XAxis).labels && xy_ && height() > 3 * line;
  const bool yCaption = !settings(YAxis).caption.isEmpty() && height() > 3 * line;
  const bool xCaption = !settings(XAxis).caption.isEmpty() && height() > 4 * line;
  // A fixed width for the labels: the area must not move while an axis grows.
  const int left = (yLabels ? fontMetrics().horizontalAdvance(QStringLiteral("-00000.0")) + 4 : 0) + 1;
  const int bottom = (xLabels ? line + 3 : 0) + (xCaption ? line + 1 : 0) + 1;
  const int top = yCaption ? line + 2 : 1;
  return QRect(left, top, std::max(width() - left - 1, 1), std::max(height() - top - bottom, 1));
}

AxisTicks CWGraph::ticks(AxisId axis, const QRect& area) const {
  const int line = std::max(fontMetrics().height(), 1);
  const int room = axis == XAxis ? area.width() / (line * 5) : area.height() * 2 / (line * 3);
  const int atMost = std::clamp(room, 1, 11);
  return settings(axis).binary ? wholeTicksFor(range(axis), atMost) : ticksFor(range(axis), atMost);
}

std::int64_t CWGraph::columnOf(std::int64_t point) const { return point * canvas_.width() / history_; }

std::int64_t CWGraph::firstColumn() const {
  if (xy_) return 0;
  const std::int64_t newest = endPoint();
  if (newest <= history_) return 0;
  return columnOf(newest - 1) - canvas_.width() + 1;
}

double CWGraph::rowOf(double y) const {
  const AxisRange axis = range(YAxis);
  return limited((axis.maximum - y) / axis.span() * (canvas_.height() - 1) + 0.5);
}

double CWGraph::xyColumnOf(double x) const {
  const AxisRange axis = range(XAxis);
  return limited((x - axis.minimum) / axis.span() * (canvas_.width() - 1) + 0.5);
}

bool CWGraph::followPoints() {
  bool changed = false;
  for (const AxisId axis : {XAxis, YAxis}) {
    if (!settings(axis).autoscale || (axis == XAxis && !xy_)) continue;
    Extremes all;
    for (const Plot& plot : plots_)
      all.add(axis == XAxis ? plot.shown().extremesOfX() : plot.shown().extremes());
    changed |= settings(axis).automatic.follow(all.lowest, all.highest);
  }
  return changed;
}

void CWGraph::prepareCanvas() {
  if (!frozen_ && followPoints()) redrawAll();  // the labels may lie outside of what is painted now
  const QSize size = plotArea().size() * devicePixelRatio();
  if (size.width() != canvas_.width() || size.height() != canvas_.height()) stale_ = true;
  if (!stale_) return drawNewColumns();
  canvas_.resize(size.width(), size.height());
  canvas_.setPen(static_cast<int>(std::lround(devicePixelRatio())));
  canvas_.setFirstColumn(firstColumn());
  drawnTo_ = canvas_.firstColumn() + canvas_.width();
  drawGrid(canvas_.firstColumn(), drawnTo_);
  for (Plot& plot : plots_) {
    if (xy_)
      drawXY(plot);
    else if (history_ > 4 * canvas_.width())
      drawColumns(plot);
    else
      drawTimePoints(plot, plot.shown().begin());
    plot.drawn = plot.shown().end();
  }
  stale_ = false;
}

void CWGraph::drawNewColumns() {
  canvas_.setFirstColumn(firstColumn());
  const std::int64_t end = canvas_.firstColumn() + canvas_.width();
  if (end > drawnTo_) drawGrid(std::max(drawnTo_, canvas_.firstColumn()), end);
  drawnTo_ = end;
  for (Plot& plot : plots_) {
    if (plot.drawn < plot.shown().end()) drawTimePoints(plot, std::max(plot.drawn - 1, plot.shown().begin()));
    plot.drawn = plot.shown().end();
  }
}

/// Each point with a line from the one before it; the point `from` is where the line starts.
void CWGraph::drawTimePoints(const Plot& plot, std::int64_t from) {
  const PlotHistory& points = plot.shown();
  const std::uint32_t colour = rgb(readableCurve(plot.colour, palette().color(QPalette::Base)));
  double lastX = 0;
  double lastY = std::numeric_limits<double>::quiet_NaN();
  for (std::int64_t point = from; point < points.end(); ++point) {
    const double value = points.y(point);
    if (!std::isfinite(value)) {
      lastY = value;
      continue;
    }
    const auto x = static_cast<double>(columnOf(point));
    const double y = rowOf(value);
    if (std::isfinite(lastY))
      canvas_.line(lastX, lastY, x, y, colour);
    else
      canvas_.span(columnOf(point), y, y, colour);
    lastX = x;
    lastY = y;
  }
}

/// Many points in a column: one span from the lowest to the highest, and a line from the column before.
void CWGraph::drawColumns(const Plot& plot) {
  const PlotHistory& points = plot.shown();
  const std::uint32_t colour = rgb(readableCurve(plot.colour, palette().color(QPalette::Base)));
  const std::int64_t end = points.end();
  std::int64_t first = points.begin();
  while (first < end) {
    const std::int64_t column = columnOf(first);
    const std::int64_t next =
        std::min(((column + 1) * history_ + canvas_.width() - 1) / canvas_.width(), end);
    const Extremes extremes = points.extremes(first, next);
    if (extremes.any()) canvas_.span(column, rowOf(extremes.lowest), rowOf(extremes.highest), colour);
    if (first > points.begin()) {
      const double before = points.y(first - 1);
      const double after = points.y(first);
      const auto x = static_cast<double>(column);
      if (std::isfinite(before) && std::isfinite(after))
        canvas_.line(x - 1, rowOf(before), x, rowOf(after), colour);
    }
    first = next;
  }
}

void CWGraph::drawXY(const Plot& plot) {
  const PlotHistory& points = plot.shown();
  const std::uint32_t colour = rgb(readableCurve(plot.colour, palette().color(QPalette::Base)));
  bool joined = false;
  double lastX = 0;
  double lastY = 0;
  for (std::int64_t point = points.begin(); point < points.end(); ++point) {
    const double valueX = points.x(point);
    const double valueY = points.y(point);
    const bool finite = std::isfinite(valueX) && std::isfinite(valueY);
    if (finite) {
      const double x = xyColumnOf(valueX);
      const double y = rowOf(valueY);
      canvas_.line(joined ? lastX : x, joined ? lastY : y, x, y, colour);
      lastX = x;
      lastY = y;
    }
    joined = finite;
  }
}

void CWGraph::drawGrid(std::int64_t from, std::int64_t to) {
  const QColor base = palette().color(QPalette::Base);
  const std::uint32_t grid = rgb(blend(base, palette().color(QPalette::Text), 0.16F));
  canvas_.fillColumns(from, to, rgb(base));
  const QRect area = plotArea();
  if (settings(YAxis).grid) {
    const AxisTicks marks = ticks(YAxis, area);
    for (int i = 0; i < marks.count; ++i) canvas_.row(static_cast<int>(rowOf(marks.at(i))), from, to, grid);
  }
  if (!settings(XAxis).grid) return;
  const AxisTicks marks = ticks(XAxis, area);
  if (xy_) {
    for (int i = 0; i < marks.count; ++i)
      canvas_.span(static_cast<std::int64_t>(xyColumnOf(marks.at(i))), 0, canvas_.height(), grid);
    return;
  }
  // Lines at ranks: they move with the points, as on paper.
  const auto step = std::max<std::int64_t>(std::llround(marks.step), 1);
  const std::int64_t firstPoint = from * history_ / canvas_.width();
  for (std::int64_t rank = (firstPoint / step) * step; columnOf(rank) < to; rank += step)
    if (columnOf(rank) >= from) canvas_.span(columnOf(rank), 0, canvas_.height(), grid);
}

void CWGraph::paintXLabels(QPainter& painter, const QRect& area) const {
  const int line = fontMetrics().height();
  int y = area.bottom() + 3;
  if (settings(XAxis).labels && xy_ && height() > 3 * line) {
    const AxisTicks marks = ticks(XAxis, area);
    int free = 0;
    for (int i = 0; i < marks.count; ++i) {
      const QString text = locale().toString(marks.at(i), 'f', marks.decimals);
      const int wide = fontMetrics().horizontalAdvance(text);
      const double part = (marks.at(i) - axisMinimum(XAxis)) / range(XAxis).span();
      const int centre = area.left() + static_cast<int>(part * (area.width() - 1));
      const int x = std::clamp(centre - wide / 2, 0, std::max(width() - wide, 0));
      if (x < free) continue;
      painter.drawText(x, y, wide, line, Qt::AlignCenter, text);
      free = x + wide + line / 2;
    }
    y += line;
  }
  if (y + line <= height())
    painter.drawText(area.left(), y, area.width(), line, Qt::AlignCenter, settings(XAxis).caption);
}

void CWGraph::paintYLabels(QPainter& painter, const QRect& area) const {
  const int line = fontMetrics().height();
  if (area.top() > line) painter.drawText(0, 0, width(), line, Qt::AlignLeft, settings(YAxis).caption);
  if (area.left() < line) return;
  const AxisTicks marks = ticks(YAxis, area);
  int free = height();
  for (int i = 0; i < marks.count; ++i) {
    const double part = (axisMaximum(YAxis) - marks.at(i)) / range(YAxis).span();
    const int centre = area.top() + static_cast<int>(part * (area.height() - 1));
    const int y = std::clamp(centre - line / 2, 0, std::max(height() - line, 0));
    if (y + line > free + 2) continue;
    QString text = locale().toString(marks.at(i), 'f', marks.decimals);
    if (fontMetrics().horizontalAdvance(text) > area.left() - 4)
      text = locale().toString(marks.at(i), 'g', 3);
    painter.drawText(0, y, area.left() - 4, line, Qt::AlignRight | Qt::AlignVCenter, text);
    free = y;
  }
}

void CWGraph::paintFrame() {
  const qreal ratio = devicePixelRatio();
  frame_ = QPixmap(size() * ratio);
  frame_.setDevicePixelRatio(ratio);
  frame_.fill(palette().color(QPalette::Window));
  QPainter painter(&frame_);
  painter.setFont(font());
  const QRect area = plotArea();
  painter.setPen(blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.45F));
  painter.drawRect(area.adjusted(-1, -1, 0, 0));
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  paintYLabels(painter, area);
  paintXLabels(painter, area);
  frameStale_ = false;
}

void CWGraph::paintEvent(QPaintEvent* event) {
  if (width() < 1 || height() < 1) return;
  prepareCanvas();
  if (frameStale_) paintFrame();
  QPainter painter(this);
  const QRect area = plotArea();
  if (!area.contains(event->rect())) painter.drawPixmap(0, 0, frame_);
  const QImage image(reinterpret_cast<const uchar*>(canvas_.pixels()), canvas_.width(), canvas_.height(),
                     canvas_.width() * 4, QImage::Format_RGB32);
  const qreal ratio = devicePixelRatio();
  const int seam = canvas_.seam();
  const int rest = canvas_.width() - seam;
  const auto place = [&](int column, int count) {
    return QRectF(area.left() + column / ratio, area.top(), count / ratio, canvas_.height() / ratio);
  };
  painter.drawImage(place(0, rest), image, QRectF(seam, 0, rest, canvas_.height()));
  if (seam > 0) painter.drawImage(place(rest, seam), image, QRectF(0, 0, seam, canvas_.height()));
}

void CWGraph::resizeEvent(QResizeEvent* event) {
  redrawAll();
  QWidget::resizeEvent(event);
}

void CWGraph::changeEvent(QEvent* event) {
  redrawAll();  // palette, font, locale, enabled
  QWidget::changeEvent(event);
}

}  // namespace tarnlog
