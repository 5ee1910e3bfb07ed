#include "platform/controls/CWGraph.h"

#include <QEvent>
#include <QLocale>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/controls/Blend.h"

namespace tarnlog {
namespace {

constexpr double kFarAway = 1e7;  ///< pixels; beyond, slopes no longer matter

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
  redrawAll();
}

void CWGraph::setXY(bool xy) {
  xy_ = xy;
  for (Plot& plot : plots_) plot.points.setKeepsX(xy);
  redrawAll();
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
  plots_.back().points.setKeepsX(xy_);
  plots_.back().colour = palette().color(QPalette::Text);
  return plotCount();
}

void CWGraph::setPlotColour(int plot, const QColor& colour) {
  if (plot < 1 || plot > plotCount()) return;
  plots_[static_cast<std::size_t>(plot - 1)].colour = colour;
  redrawAll();
}

void CWGraph::chartY(int plot, double y) { append(plot, 0, y); }

void CWGraph::plotXY(int plot, double x, double y) { append(plot, x, y); }

void CWGraph::append(int plot, double x, double y) {
  if (plot < 1 || plot > plotCount()) return;
  plots_[static_cast<std::size_t>(plot - 1)].points.append(x, y);
  if (xy_) stale_ = true;
  pacer_.request(plotArea());
}

void CWGraph::clearData() {
  for (Plot& plot : plots_) plot.points.clear();
  for (AxisSettings& axis : axes_) axis.automatic.reset();
  redrawAll();
}

void CWGraph::redrawAll() {
  stale_ = frameStale_ = true;
  update();
}

double CWGraph::valueAt(int plot, int x) const {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const QRect area = plotArea();
  if (xy_ || plot < 1 || plot > plotCount() || x < area.left() || x > area.right()) return none;
  const PlotHistory& points = plots_[static_cast<std::size_t>(plot - 1)].points;
  std::int64_t newest = 0;
  for (const Plot& each : plots_) newest = std::max(newest, each.points.end());
  const std::int64_t oldest = std::max<std::int64_t>(newest - history_, 0);
  const std::int64_t point = oldest + std::int64_t{x - area.left()} * history_ / std::max(area.width(), 1);
  return point >= points.begin() && point < points.end() ? points.y(point) : none;
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
  std::int64_t newest = 0;
  for (const Plot& plot : plots_) newest = std::max(newest, plot.points.end());
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
      all.add(axis == XAxis ? plot.points.extremesOfX() : plot.points.extremes());
    changed |= settings(axis).automatic.follow(all.lowest, all.highest);
  }
  return changed;
}

void CWGraph::prepareCanvas() {
  if (followPoints()) redrawAll();  // the labels may lie outside of what is painted now
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
      drawTimePoints(plot, plot.points.begin());
    plot.drawn = plot.points.end();
  }
  stale_ = false;
}

void CWGraph::drawNewColumns() {
  canvas_.setFirstColumn(firstColumn());
  const std::int64_t end = canvas_.firstColumn() + canvas_.width();
  if (end > drawnTo_) drawGrid(std::max(drawnTo_, canvas_.firstColumn()), end);
  drawnTo_ = end;
  for (Plot& plot : plots_) {
    if (plot.drawn < plot.points.end()) drawTimePoints(plot, std::max(plot.drawn - 1, plot.points.begin()));
    plot.drawn = plot.points.end();
  }
}

/// Each point with a line from the one before it; the point `from` is where the line starts.
void CWGraph::drawTimePoints(Plot& plot, std::int64_t from) {
  const std::uint32_t colour = rgb(plot.colour);
  double lastX = 0;
  double lastY = std::numeric_limits<double>::quiet_NaN();
  for (std::int64_t point = from; point < plot.points.end(); ++point) {
    const double value = plot.points.y(point);
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
void CWGraph::drawColumns(Plot& plot) {
  const std::uint32_t colour = rgb(plot.colour);
  const std::int64_t end = plot.points.end();
  std::int64_t first = plot.points.begin();
  while (first < end) {
    const std::int64_t column = columnOf(first);
    const std::int64_t next =
        std::min(((column + 1) * history_ + canvas_.width() - 1) / canvas_.width(), end);
    const Extremes extremes = plot.points.extremes(first, next);
    if (extremes.any()) canvas_.span(column, rowOf(extremes.lowest), rowOf(extremes.highest), colour);
    if (first > plot.points.begin()) {
      const double before = plot.points.y(first - 1);
      const double after = plot.points.y(first);
      const auto x = static_cast<double>(column);
      if (std::isfinite(before) && std::isfinite(after))
        canvas_.line(x - 1, rowOf(before), x, rowOf(after), colour);
    }
    first = next;
  }
}

void CWGraph::drawXY(Plot& plot) {
  const std::uint32_t colour = rgb(plot.colour);
  bool joined = false;
  double lastX = 0;
  double lastY = 0;
  for (std::int64_t point = plot.points.begin(); point < plot.points.end(); ++point) {
    const double valueX = plot.points.x(point);
    const double valueY = plot.points.y(point);
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
