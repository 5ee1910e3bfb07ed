#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "platform/controls/GraphOverlay.h"
#include "platform/controls/Readable.h"
#include "platform/plotting/CurvePen.h"
#include "platform/plotting/PixelScale.h"
#include "ui/common/Convert.h"
#include "ui/review/GraphSheet.h"
#include "ui/review/ReviewFlags.h"

namespace tarnlog {
namespace {

constexpr float kGridLine = 0.16F;
constexpr float kBorder = 0.45F;
constexpr int kShortestLabel = 12;  ///< pixels of a band with a text

/// Of three points on one level, the middle one is none; a hundredth of a pixel is exact enough.
void addPoint(QPolygonF& line, const QPointF& exact) {
  const QPointF point(std::round(exact.x() * 100) / 100, std::round(exact.y() * 100) / 100);
  const qsizetype count = line.size();
  if (count > 1 && line[count - 1].y() == point.y() && line[count - 2].y() == point.y() &&
      line[count - 2].x() <= line[count - 1].x() && line[count - 1].x() <= point.x())
    line[count - 1] = point;
  else if (count == 0 || line[count - 1] != point)
    line.append(point);
}

}  // namespace

void GraphSheet::drawGrid(ScrollingCanvas& canvas) const {
  const std::uint32_t line = look_.ink(kGridLine).rgb();
  canvas.fillColumns(0, canvas.width(), look_.base().rgb());
  const PixelScale rows = PixelScale::downwards(y_.range(), canvas.height() - canvas.pen() + 1);
  for (const double mark : frame_.yMarks()) canvas.row(static_cast<int>(rows(mark)), 0, canvas.width(), line);
  if (isOverTime()) {
    for (const double x : timeLines()) canvas.column(static_cast<std::int64_t>(x * look_.ratio), line);
    return;
  }
  const PixelScale columns(x_.range(), canvas.width());
  for (int i = 0; i < frame_.xTicks().count; ++i)
    canvas.column(static_cast<std::int64_t>(columns(frame_.xTicks().at(i))), line);
}

void GraphSheet::drawCurves(ScrollingCanvas& canvas) const {
  canvas.setPen(qRound(look_.ratio));
  canvas.setFirstColumn(0);
  drawGrid(canvas);
  for (std::size_t i = traces_.size(); i-- != 0;)  // the first one over the others
    drawTrace(canvas, i, curveInk(graph().curves[i], look_.palette));
}

void GraphSheet::drawTrace(ScrollingCanvas& canvas, std::size_t curve, const CurveInk& ink) const {
  const PixelScale rows = PixelScale::downwards(ranges_[curve], canvas.height() - canvas.pen() + 1);
  const auto& points = traces_[curve].points;
  if (!isOverTime()) {
    const PixelScale columns(x_.range(), canvas.width());
    for (std::size_t i = 0; i < points.size(); ++i) {
      if (std::isnan(points[i].y)) continue;
      const CurveTrace::Point& from = points[i == 0 || std::isnan(points[i - 1].y) ? i : i - 1];
      canvas.line(columns(from.x), rows(from.y), columns(points[i].x), rows(points[i].y), ink.colour);
    }
    return;
  }
  CurvePen pen(canvas, ink);
  std::size_t begun = 0;
  const auto lift = [&](std::size_t end) {
    pen.lift();
    if (end == begun + 1)
      canvas.dot(static_cast<std::int64_t>(std::floor(points[begun].x)),
                 static_cast<int>(rows(points[begun].y)), ink.colour);
    begun = end + 1;
  };
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (std::isnan(points[i].y))
      lift(i);
    else
      pen.draw(static_cast<std::int64_t>(std::floor(points[i].x)), rows(points[i].y));
  }
  lift(points.size());
}

void GraphSheet::paintGrid(QPainter& painter) const {
  painter.fillRect(area_, look_.base());
  painter.setPen(QPen(look_.ink(kGridLine), 1));
  const PixelScale rows = PixelScale::downwards(y_.range(), area_.height());
  if (!hasBars())
    for (const double mark : frame_.yMarks()) {
      const double y = area_.top() + std::floor(rows(mark)) + 0.5;
      painter.drawLine(QPointF(area_.left(), y), QPointF(area_.right() + 1, y));
    }
  const auto upright = [&](double x) {
    const double at = area_.left() + std::floor(x) + 0.5;
    painter.drawLine(QPointF(at, area_.top()), QPointF(at, area_.bottom() + 1));
  };
  if (isOverTime()) {
    for (const double x : timeLines()) upright(x);
    return;
  }
  const PixelScale columns(x_.range(), area_.width());
  for (int i = 0; i < frame_.xTicks().count; ++i) upright(columns(frame_.xTicks().at(i)));
}

void GraphSheet::paintCurves(QPainter& painter) const {
  painter.save();
  painter.setClipRect(area_);
  painter.setFont(look_.font);
  paintGrid(painter);
  if (hasBars())
    for (std::size_t i = 0; i < lanes_.size(); ++i) paintLane(painter, i);
  else
    for (std::size_t i = traces_.size(); i-- != 0;) paintTrace(painter, i);
  painter.restore();
}

void GraphSheet::paintTrace(QPainter& painter, std::size_t curve) const {
  const PixelScale rows = PixelScale::downwards(ranges_[curve], area_.height());
  const PixelScale columns(x_.range(), area_.width());
  const double perColumn = static_cast<double>(area_.width()) / columns_;
  CurveTrace trace = traces_[curve];
  if (isOverTime()) trace.cutEnds(0, columns_);  // not every kind of picture can clip
  painter.setPen(QPen(curveColour(graph().curves[curve], look_.palette), 1.2, Qt::SolidLine, Qt::RoundCap,
                      Qt::RoundJoin));
  QPolygonF line;
  const auto draw = [&] {
    if (line.size() == 1) painter.drawPoint(line.front());
    if (line.size() > 1) painter.drawPolyline(line);
    line.clear();
  };
  for (const CurveTrace::Point& point : trace.points) {
    const double x = isOverTime() ? point.x * perColumn : columns(point.x);
    if (std::isnan(point.y) || x < 0 || x > area_.width())
      draw();
    else
      addPoint(line, {area_.left() + x, area_.top() + std::clamp(rows(point.y), 0.0, area_.height() - 0.5)});
  }
  draw();
}

void GraphSheet::paintLane(QPainter& painter, std::size_t curve) const {
  const Lane& lane = lanes_[curve];
  const ReviewCurve& shown = graph().curves[curve];
  const QColor colour = curveColour(shown, look_.palette);
  painter.fillRect(lane.bar, blend(look_.base(), colour, 0.06F));
  paintBands(painter, lane, colour);
  const bool chosen = clickable_ && scene_->chosen() == ReviewScene::Chosen{graph_, curve};
  QString text = curveName(*scene_, shown);
  if (const auto time = scene_->cursor(ReviewCursor::Readout)) {
    const auto row = scene_->rowAt(shown.place, *time);
    if (row) text += QStringLiteral(": ") + valueAt(*scene_, shown, *time, look_.locale);
  }
  const QFontMetrics metrics(look_.font);
  text = metrics.elidedText(text, Qt::ElideRight, lane.name.width() - 12);
  const QRect place(lane.name.left(), lane.name.top(), metrics.horizontalAdvance(text) + 14,
                    lane.name.height());
  if (chosen) painter.fillRect(place, blend(look_.base(), look_.palette.color(QPalette::Highlight), 0.25F));
  painter.fillRect(place.left() + 1, place.center().y() - 3, 8, 8, colour);
  painter.setPen(look_.palette.color(QPalette::Text));
  painter.drawText(place.adjusted(12, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
}

QRectF GraphSheet::placeOf(const Lane& lane, const StateBand& band) const {
  const double perColumn = static_cast<double>(area_.width()) / columns_;
  return {area_.left() + band.from * perColumn, static_cast<double>(lane.bar.top()),
          (band.till - band.from) * perColumn, static_cast<double>(lane.bar.height())};
}

/// Those of a kind at once, which makes files small.
void GraphSheet::paintBands(QPainter& painter, const Lane& lane, const QColor& colour) const {
  using Kind = StateBand::Kind;
  QList<QRectF> lines;
  QList<QRectF> full;
  QList<QRectF> changing;
  QList<QRectF> labelled;
  for (const StateBand& band : lane.bands) {
    const QRectF place = placeOf(lane, band);
    const QRectF edge(place.left(), place.top(), 1, place.height());
    if (band.kind == Kind::Off) lines.append({place.left(), place.bottom() - 1, place.width(), 1});
    if (band.kind == Kind::On) full.append(place);
    if (band.kind == Kind::Changing) changing.append(place);
    if (band.kind != Kind::Labelled) continue;
    labelled.append(place);
    lines.append(edge);
  }
  const auto fill = [&](const QList<QRectF>& places, float part) {
    painter.setBrush(blend(look_.base(), colour, part));
    if (!places.isEmpty()) painter.drawRects(places);
  };
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(Qt::NoPen);
  fill(labelled, 0.25F);
  fill(changing, 0.55F);
  fill(lines, 1);
  fill(full, 1);
  painter.restore();
  painter.setPen(look_.palette.color(QPalette::Text));
  for (const StateBand& band : lane.bands)
    if (band.kind == Kind::Labelled) writeLabel(painter, placeOf(lane, band), toQString(band.label));
}

void GraphSheet::writeLabel(QPainter& painter, const QRectF& band, const QString& label) const {
  const QRectF inside = band.adjusted(4, 0, -2, 0).intersected(area_.adjusted(3, 0, -3, 0));
  if (inside.width() < kShortestLabel) return;
  painter.drawText(
      inside, Qt::AlignLeft | Qt::AlignVCenter,
      QFontMetrics(look_.font).elidedText(label, Qt::ElideRight, static_cast<int>(inside.width())));
}

/// With own scales: of the curve that they belong to.
QColor GraphSheet::numberColour() const {
  const QColor window = look_.palette.color(QPalette::Window);
  const auto& curves = graph().curves;
  if (!graph().ownScales || graph().axis >= curves.size()) return look_.palette.color(QPalette::WindowText);
  return readable(curveColour(curves[graph().axis], look_.palette), window, kTextContrast);
}

void GraphSheet::paintAround(QPainter& painter, std::optional<std::size_t> under, bool focus) const {
  painter.setFont(look_.font);
  legend_.paint(painter, look_, under);
  const QColor border = focus ? look_.palette.color(QPalette::Highlight) : look_.ink(kBorder);
  painter.setPen(numberColour());
  painter.save();
  painter.translate(0, area_.top() - frame_.plotArea().top());
  if (!hasBars()) frame_.paint(painter, border);
  painter.restore();
  if (!hasBars()) return;
  painter.setPen(border);
  painter.drawRect(area_.adjusted(-1, -1, 0, 0));
}

void GraphSheet::paintOver(QPainter& painter) const {
  if (!isOverTime()) return paintCursors(painter);
  painter.save();
  painter.setClipRect(area_);
  // The texts of one record stand in all graphs, those of others in the first one: they cover curves.
  const int room = area_.height() / (3 * std::max(QFontMetrics(look_.font).height(), 1));
  const int texts = std::min(graph_ == 0 ? static_cast<int>(ReviewScene::kMostRecords) : 1, room);
  paintFlags(painter, *scene_, scene_->span(), area_, look_, hasBars() ? 0 : texts);
  paintCursors(painter);
  painter.restore();
}

/// On the curves where they are at this time.
std::vector<std::pair<QPointF, QColor>> GraphSheet::dots(double time) const {
  std::vector<std::pair<QPointF, QColor>> found;
  if (hasBars()) return found;
  for (std::size_t i = 0; i < graph().curves.size() && i < ranges_.size(); ++i) {
    const ReviewCurve& curve = graph().curves[i];
    const auto row = scene_->rowAt(curve.place, time);
    const double number = numberAt(*scene_, curve, time);
    if (!row || !std::isfinite(number)) continue;
    const PixelScale rows = PixelScale::downwards(ranges_[i], area_.height());
    double x = xOf(scene_->group(curve.place).times[*row] + scene_->offset(curve.place)) - area_.left();
    if (!isOverTime())
      x = PixelScale(x_.range(), area_.width())(numberAt(*scene_, {*graph().x, {}, 0}, time));
    if (x >= 0 && x <= area_.width())
      found.emplace_back(QPointF(x, rows(number)), curveColour(curve, look_.palette));
  }
  return found;
}

void GraphSheet::paintCursors(QPainter& painter) const {
  painter.setFont(look_.font);
  for (const ReviewCursor each : {ReviewCursor::A, ReviewCursor::B, ReviewCursor::Readout}) {
    const auto time = scene_->cursor(each);
    if (!time) continue;
    GraphCursorLine line;
    line.x = xOf(*time) - area_.left();
    if (*time == scene_->span().till) line.x = area_.width() - 1;  // the last column, not the one behind it
    line.letterBelow = true;                                       // flags stand at the top
    if (each == ReviewCursor::A) line.letter = QStringLiteral("A");
    if (each == ReviewCursor::B) line.letter = QStringLiteral("B");
    if (each == ReviewCursor::Readout) line.dots = dots(*time);
    if (!isOverTime()) {
      if (line.dots.empty()) continue;
      line.x = line.dots.front().first.x();
    }
    GraphOverlay::paintCursor(painter, look_.palette, area_, line);
  }
}

}  // namespace tarnlog
