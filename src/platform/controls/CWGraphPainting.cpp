#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/controls/CWGraph.h"
#include "platform/controls/Readable.h"

/// How a graph is painted: its axes follow the points, its curves go into the picture, and what stands around
/// and over them is painted each time.
namespace tarnlog {

std::int64_t CWGraph::firstColumn() const {
  if (view_) return std::llround(view_->first * scene_.columns.columnsPerPoint());
  const std::int64_t end = endPoint();
  return xy_ || end <= history_ ? 0 : scene_.columns.columnOf(end - 1) - picture_.canvas().width() + 1;
}

Extremes CWGraph::shownExtremes(const Plot& plot) const {
  const PlotHistory& points = plot.shown();
  if (xy_) return points.extremes(points.begin(), points.end());
  const TimeView shows = view();
  return points.extremes(static_cast<std::int64_t>(std::ceil(shows.first)),
                         static_cast<std::int64_t>(std::ceil(shows.last())));
}

bool CWGraph::follow() {
  const bool x = followAlong();
  const bool y = followUp();
  return x || y;
}

bool CWGraph::followAlong() {
  if (!x_.follows()) return false;
  Extremes all;
  for (const Plot& plot : plots_) all.add(plot.shown().extremesOfX(plot.shown().begin(), plot.shown().end()));
  return x_.automatic.follow(all.lowest, all.highest);
}

bool CWGraph::followUp() {
  if (!y_.follows() && !ownScales_) return false;
  bool changed = false;
  Extremes all;
  for (Plot& plot : plots_) {
    const Extremes extremes = shownExtremes(plot);
    all.add(extremes);
    if (ownScales_) changed |= plot.scale.follow(extremes.lowest, extremes.highest);
  }
  if (y_.follows()) changed |= y_.automatic.follow(all.lowest, all.highest);
  chosen_ = std::clamp(chosen_, 1, std::max(plotCount(), 1));
  if (ownScales_ && !plots_.empty()) y_.chosen = plots_[static_cast<std::size_t>(chosen_ - 1)].scale.range();
  return changed;
}

void CWGraph::forgetScales() {
  for (Plot& plot : plots_) plot.scale.reset();
  y_.automatic.reset();
}

void CWGraph::prepareCanvas() {
  if (!frozen_ && follow()) {
    outline_.renumber(fontMetrics(), locale(), x_, y_);
    redrawAll();  // the numbers may lie outside of what is painted now
  }
  const QRect area = plotArea();
  const qreal ratio = devicePixelRatio();
  const int wide = qRound((area.x() + area.width()) * ratio) - qRound(area.x() * ratio);
  const int high = qRound((area.y() + area.height()) * ratio) - qRound(area.y() * ratio);
  picture_.resize(wide, high);
  scene_.xy = xy_;
  scene_.pen = qRound(ratio) * (thick_ ? 2 : 1);
  scene_.columns = ColumnScale(wide, view_ ? view_->count : history_);
  scene_.firstColumn = firstColumn();
  scene_.xColumns = PixelScale(x_.range(), wide);
  scene_.pauses = times().pauses();
  collectCurves(high - scene_.pen + 1);
  collectGrid(high - scene_.pen + 1);
  if (!xy_) {
    const QString separator = locale().decimalPoint();
    overlay_.setLook({font(), palette(), ratio, separator.isEmpty() ? '.' : separator[0].toLatin1()});
    scene_.flags = overlay_.flags(times(), marks_, seen());
  }
  picture_.draw(scene_);
}

void CWGraph::collectCurves(int rows) {
  curves_.clear();
  for (const Plot& plot : plots_)
    curves_.push_back({&plot.shown(),
                       PixelScale::downwards(ownScales_ ? plot.scale.range() : y_.range(), rows),
                       {plot.painted, plot.rim}});
  scene_.curves = curves_;
}

bool CWGraph::hasTimeGrid() const { return timeGrid_ && !xy_ && x_.grid && times().usualStep() > 0; }

void CWGraph::collectGrid(int rows) {
  const QColor base = palette().color(QPalette::Base);
  levels_.clear();
  xLines_.clear();
  const PixelScale scale = PixelScale::downwards(y_.range(), rows);
  if (y_.grid)
    for (const double mark : outline_.yMarks()) levels_.push_back(scale(mark));
  const AxisTicks& marks = outline_.xTicks();
  for (int i = 0; xy_ && x_.grid && i < marks.count; ++i) xLines_.push_back(scene_.xColumns(marks.at(i)));
  const bool ranks = !xy_ && x_.grid && !hasTimeGrid();
  if (ranks != (scene_.grid.rankStep > 0)) picture_.forget();
  const double apart =
      view_ ? ticksFor({view_->first, view_->last()}, std::max(marks.count, 1)).step : marks.step;
  const auto step = std::max<std::int64_t>(std::llround(apart), 1);
  scene_.grid = {base.rgb(), blend(base, palette().color(QPalette::Text), 0.16F).rgb(), levels_, xLines_,
                 ranks ? step : 0};
}

void CWGraph::paintEvent(QPaintEvent* event) {
  if (width() < 1 || height() < 1) return;
  prepareCanvas();
  QPainter painter(this);
  if (!plotArea().contains(event->rect())) paintAround(painter);
  paintPlot(painter);
  if (std::any_of(cursors_.begin(), cursors_.end(), [](std::int64_t each) { return each >= 0; }))
    paintCursors(painter);
}

/// Lines at whole times stand still while the curves move: they lie over the picture only now.
void CWGraph::paintPlot(QPainter& painter) {
  const bool ruled = hasTimeGrid();
  if (ruled) picture_.layRules(overlay_.rules(times(), seen()));
  paintCanvas(painter);
  if (ruled) picture_.liftRules();
}

GraphOverlay::Seen CWGraph::seen() const {
  const double ratio = devicePixelRatio();
  const double first = std::max(pointAtX(0), 0.0);
  const double last = std::min(pointAtX(plotArea().width()), static_cast<double>(endPoint()));
  return {first, last, chartX(first) * ratio, (chartX(1) - chartX(0)) * ratio, picture_.canvas().width()};
}

void CWGraph::paintCursors(QPainter& painter) {
  painter.resetTransform();
  painter.setClipRect(plotArea());
  for (const Cursor each : {CursorA, CursorB, Readout})
    if (cursor(each) >= 0) GraphOverlay::paintCursor(painter, palette(), plotArea(), cursorLine(each));
}

void CWGraph::setCursor(Cursor cursor, std::int64_t point) {
  std::int64_t& kept = cursors_[static_cast<std::size_t>(cursor)];
  if (std::exchange(kept, point) != point) update(plotArea().adjusted(-1, -1, 1, 1));
}

GraphCursorLine CWGraph::cursorLine(Cursor cursor) const {
  const std::int64_t point = this->cursor(cursor);
  const QPoint corner = plotArea().topLeft();
  GraphCursorLine line;
  line.x = xy_ ? placeOf(1, point).x() - corner.x() : chartX(static_cast<double>(point));
  if (cursor != Readout) line.letter = cursor == CursorA ? QStringLiteral("A") : QStringLiteral("B");
  for (int plot = 1; cursor == Readout && plot <= plotCount(); ++plot)
    if (std::isfinite(valueOf(plot, point)) && (!xy_ || std::isfinite(xValueOf(plot, point))))
      line.dots.emplace_back(placeOf(plot, point) - corner, plotColour(plot));
  return line;
}

void CWGraph::paintAround(QPainter& painter) {
  const QRect area = plotArea();
  const QColor window = palette().color(QPalette::Window);
  painter.fillRect(0, 0, width(), area.top(), window);
  painter.fillRect(0, area.bottom() + 1, width(), height() - area.bottom() - 1, window);
  painter.fillRect(0, area.top(), area.left(), area.height(), window);
  painter.fillRect(area.right() + 1, area.top(), width() - area.right() - 1, area.height(), window);
  const bool own = ownScales_ && chosen_ >= 1 && chosen_ <= plotCount();
  painter.setPen(own ? readable(plots_[static_cast<std::size_t>(chosen_ - 1)].colour, window, kTextContrast)
                     : palette().color(QPalette::WindowText));
  const QColor border = blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.45F);
  outline_.paint(painter, hasFocus() ? palette().color(QPalette::Highlight) : border);
}

/// In the screen's own pixels, in the two pieces that the canvas keeps.
void CWGraph::paintCanvas(QPainter& painter) {
  const qreal ratio = devicePixelRatio();
  const QPoint corner(qRound(plotArea().left() * ratio), qRound(plotArea().top() * ratio));
  const ScrollingCanvas& canvas = picture_.canvas();
  const QImage image(reinterpret_cast<const uchar*>(canvas.pixels()), canvas.width(), canvas.height(),
                     canvas.width() * 4, QImage::Format_RGB32);
  const int seam = canvas.seam();
  const int rest = canvas.width() - seam;
  painter.scale(1 / ratio, 1 / ratio);
  painter.drawImage(corner, image, QRect(seam, 0, rest, canvas.height()));
  if (seam > 0) painter.drawImage(corner + QPoint(rest, 0), image, QRect(0, 0, seam, canvas.height()));
}

}  // namespace tarnlog
