#include "ui/review/ReviewGraphWidget.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"
#include "ui/review/CurveDrag.h"
#include "ui/review/GraphKinds.h"
#include "ui/review/ReviewFlags.h"
#include "ui/review/ReviewGraphMenu.h"
#include "ui/review/ReviewKeys.h"

namespace tarnlog {
namespace {

constexpr int kLeastWidth = 120;
constexpr int kLeastLines = 5;  ///< of text, that curves are high
constexpr int kStill = 4;       ///< pixels
constexpr int kEdge = 10;       ///< pixels at the top and the bottom that stand for "between graphs"
constexpr double kSnap = 12;    ///< pixels

}  // namespace

ReviewGraphWidget::ReviewGraphWidget(ReviewScene& scene, std::size_t graph, std::shared_ptr<SeenRecords> seen,
                                     QWidget* parent)
    : QWidget(parent), scene_(scene), graph_(graph), seen_(std::move(seen)) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAcceptDrops(true);
  setGraph(graph);
}

void ReviewGraphWidget::setGraph(std::size_t graph) {
  graph_ = graph;
  QStringList names;
  if (exists()) {
    for (const ReviewCurve& curve : shown().curves) names.append(curveName(scene_, curve));
    const QString title = toQString(shown().title);
    setAccessibleName(title.isEmpty() ? tr("Graph of %1").arg(names.join(QStringLiteral(", "))) : title);
  }
  updateGeometry();
  stale();
}

void ReviewGraphWidget::stale() {
  laidOut_ = drawn_ = false;
  update();
}

void ReviewGraphWidget::react(unsigned changes) {
  if ((changes & kGraphsChanged) != 0) {
    closeMenu();
    return setGraph(graph_);
  }
  if ((changes & kRecordsChanged) != 0) return stale();
  if ((changes & kSpanChanged) != 0) drawn_ = false;
  if (laidOut_ && exists() && (changes & (kCursorsChanged | kChosenChanged)) != 0) {
    const int before = sheet_.legend().height();
    sheet_.layOutLegend();
    if (sheet_.legend().height() != before) {
      updateGeometry();
      stale();
    }
  }
  if ((changes & kCursorsChanged) != 0) describe();
  update();
}

/// It is about graphs that may be others now.
void ReviewGraphWidget::closeMenu() {
  for (ReviewGraphMenu* const menu : findChildren<ReviewGraphMenu*>(Qt::FindDirectChildrenOnly))
    menu->close();
}

/// What is read out, for who listens.
void ReviewGraphWidget::describe() {
  const auto time = scene_.cursor(ReviewCursor::Readout);
  if (!time || !exists()) return setAccessibleDescription({});
  QStringList lines{momentText(scene_, *time, locale())};
  for (const ReviewCurve& curve : shown().curves)
    lines.append(curveName(scene_, curve) + QStringLiteral(": ") + valueAt(scene_, curve, *time, locale()));
  setAccessibleDescription(lines.join(QLatin1Char('\n')));
}

QSize ReviewGraphWidget::sizeHint() const {
  return {480, std::max(minimumSizeHint().height(), 10 * fontMetrics().height())};
}

QSize ReviewGraphWidget::minimumSizeHint() const {
  const int least = exists() ? GraphSheet::leastHeight(scene_, graph_, std::max(width(), kLeastWidth),
                                                       ReviewLook::of(*this), true, kLeastLines)
                             : kLeastLines * fontMetrics().height();
  return {kLeastWidth, least};
}

QRect ReviewGraphWidget::plotArea() {
  prepare();
  return sheet_.plotArea();
}

void ReviewGraphWidget::prepare() {
  if (laidOut_ || !exists()) return;
  sheet_.layOut(scene_, graph_, size(), ReviewLook::of(*this), true);
  laidOut_ = true;
  drawn_ = false;
}

void ReviewGraphWidget::draw() {
  if (drawn_) return;
  drawn_ = true;
  const QRect area = sheet_.plotArea();
  const qreal ratio = devicePixelRatio();
  const int wide = qRound((area.x() + area.width()) * ratio) - qRound(area.x() * ratio);
  const int high = qRound((area.y() + area.height()) * ratio) - qRound(area.y() * ratio);
  sheet_.see(*seen_, wide);
  if (sheet_.hasBars()) return;
  if (canvas_.width() != wide || canvas_.height() != high) canvas_.resize(wide, high);
  sheet_.drawCurves(canvas_);
}

void ReviewGraphWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!exists() || width() < 8 || height() < 8) return;
  prepare();
  draw();
  sheet_.paintAround(painter, under_, hasFocus());
  paintPicture(painter);
  sheet_.paintOver(painter);
  paintSelection(painter);
  paintTarget(painter);
}

/// In the screen's own pixels.
void ReviewGraphWidget::paintPicture(QPainter& painter) {
  if (sheet_.hasBars()) return sheet_.paintCurves(painter);
  const qreal ratio = devicePixelRatio();
  const QPoint corner(qRound(sheet_.plotArea().left() * ratio), qRound(sheet_.plotArea().top() * ratio));
  const QImage image(reinterpret_cast<const uchar*>(canvas_.pixels()), canvas_.width(), canvas_.height(),
                     canvas_.width() * 4, QImage::Format_RGB32);
  painter.save();
  painter.scale(1 / ratio, 1 / ratio);
  painter.drawImage(corner, image);
  painter.restore();
}

void ReviewGraphWidget::paintSelection(QPainter& painter) {
  if (gesture_ != Gesture::Select) return;
  QColor shade = palette().color(QPalette::Highlight);
  shade.setAlphaF(0.3F);
  const QRect area = sheet_.plotArea();
  painter.fillRect(
      QRect(std::min(pressed_.x(), last_.x()), area.top(), std::abs(last_.x() - pressed_.x()), area.height())
          .intersected(area),
      shade);
}

void ReviewGraphWidget::paintTarget(QPainter& painter) {
  const QColor colour = palette().color(QPalette::Highlight);
  if (target_ == Target::Above) painter.fillRect(0, 0, width(), 3, colour);
  if (target_ == Target::Below) painter.fillRect(0, height() - 3, width(), 3, colour);
  if (target_ != Target::Graph) return;
  painter.setPen(QPen(colour, 2));
  painter.drawRect(sheet_.plotArea());
}

void ReviewGraphWidget::resizeEvent(QResizeEvent* event) {
  stale();
  if (event->size().width() != event->oldSize().width()) updateGeometry();  // legends wrap
  QWidget::resizeEvent(event);
}

void ReviewGraphWidget::changeEvent(QEvent* event) {
  stale();  // palette, font, locale
  QWidget::changeEvent(event);
}

bool ReviewGraphWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !exists() || !laidOut_) return QWidget::event(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const double pixel = scene_.span().length() / std::max(sheet_.plotArea().width(), 1);
  QString text;
  if (const auto curve = curveAt(help.pos()); curve && *curve < shown().curves.size()) {
    const ReviewCurve& over = shown().curves[*curve];
    const RecordColumn& about = scene_.column(over.place).about;
    text = curveName(scene_, over);
    if (!about.ecu.empty()) text += QLatin1Char('\n') + toQString(about.ecu);
    if (!about.request.empty()) text += QLatin1Char('\n') + toQString(about.request);
  } else if (sheet_.isOverTime() && sheet_.plotArea().contains(help.pos())) {
    text = flagsNear(scene_, sheet_.timeAt(help.pos().x()), 6 * pixel, locale());
  }
  QToolTip::showText(help.globalPos(), text, this);
  return true;
}

std::optional<std::size_t> ReviewGraphWidget::curveAt(const QPoint& at) const {
  if (const auto lane = sheet_.laneAt(at)) return lane;
  return sheet_.hasBars() ? std::nullopt : sheet_.legend().at(at);
}

/// A cursor's line near the pointer.
std::optional<ReviewCursor> ReviewGraphWidget::cursorAt(const QPoint& at) const {
  if (!sheet_.isOverTime() || !sheet_.plotArea().contains(at)) return std::nullopt;
  for (const ReviewCursor each : {ReviewCursor::A, ReviewCursor::B})
    if (const auto time = scene_.cursor(each); time && std::abs(sheet_.xOf(*time) - at.x()) <= kStill)
      return each;
  return std::nullopt;
}

void ReviewGraphWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !exists()) return QWidget::mousePressEvent(event);
  prepare();
  gesture_ = Gesture::Press;
  goesOn_ = false;
  pressed_ = last_ = event->position().toPoint();
}

void ReviewGraphWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!exists()) return;
  prepare();
  const QPoint at = event->position().toPoint();
  if ((event->buttons() & Qt::LeftButton) == 0) {
    gesture_ = Gesture::None;
    const auto under = sheet_.hasBars() ? std::nullopt : sheet_.legend().at(at);
    if (std::exchange(under_, under) != under) update();
    setCursor(cursorAt(at) ? Qt::SplitHCursor : Qt::ArrowCursor);
    return;
  }
  if (gesture_ == Gesture::Press && (at - pressed_).manhattanLength() > kStill)
    beginGesture(pressed_, event->modifiers());
  goOn(at);
}

void ReviewGraphWidget::beginGesture(const QPoint& at, Qt::KeyboardModifiers modifiers) {
  gesture_ = Gesture::None;
  if (!sheet_.isOverTime() || !sheet_.plotArea().contains(at)) return;
  if (const auto cursor = cursorAt(at)) {
    dragged_ = *cursor;
    gesture_ = Gesture::Cursor;
  } else if ((modifiers & Qt::ControlModifier) != 0 && laidOverRecord()) {
    gesture_ = Gesture::Align;
  } else {
    gesture_ = (modifiers & Qt::ShiftModifier) != 0 ? Gesture::Select : Gesture::Pan;
  }
}

/// That of the chosen curve, or the only one.
std::optional<std::size_t> ReviewGraphWidget::laidOverRecord() const {
  const auto& chosen = scene_.chosen();
  if (chosen)
    if (const std::size_t record = scene_.graphs()[chosen->graph].curves[chosen->curve].place.record;
        record != 0)
      return record;
  return scene_.records().size() == 2 ? std::optional<std::size_t>(1) : std::nullopt;
}

void ReviewGraphWidget::goOn(const QPoint& at) {
  const QPoint before = std::exchange(last_, at);
  if (gesture_ == Gesture::Select) return update();
  if (gesture_ == Gesture::Cursor) return scene_.setCursor(dragged_, sheet_.timeAt(at.x()));
  if (gesture_ == Gesture::Align) {
    const auto record = laidOverRecord();
    const double way = sheet_.timeAt(at.x()) - sheet_.timeAt(before.x());
    if (record) scene_.setOffset(*record, scene_.records()[*record].offset + way);
    return;
  }
  if (gesture_ != Gesture::Pan || at.x() == before.x()) return;
  scene_.pan(static_cast<double>(before.x() - at.x()) / std::max(sheet_.plotArea().width(), 1), goesOn_);
  goesOn_ = true;
}

void ReviewGraphWidget::mouseReleaseEvent(QMouseEvent* event) {
  const Gesture gesture = std::exchange(gesture_, Gesture::None);
  if (event->button() != Qt::LeftButton || !exists()) return QWidget::mouseReleaseEvent(event);
  if (gesture == Gesture::Press) click(pressed_);
  if (gesture == Gesture::Select && std::abs(last_.x() - pressed_.x()) > kStill)
    scene_.show({sheet_.timeAt(pressed_.x()), sheet_.timeAt(last_.x())});
  update();
}

void ReviewGraphWidget::click(const QPoint& at) {
  const auto curve = curveAt(at);
  if (curve && !sheet_.hasBars() && sheet_.legend().closes(*curve, at))
    return scene_.removeCurve(graph_, *curve);
  if (curve) {
    if (shown().ownScales) scene_.setAxis(graph_, *curve);
    scene_.choose(ReviewScene::Chosen{graph_, *curve});
  }
  if (!sheet_.plotArea().contains(at)) return;
  if (sheet_.isOverTime()) return readOut(at.x());
  if (const auto time = sheet_.timeNear(at)) scene_.setCursor(ReviewCursor::Readout, *time);
}

/// At the nearest row of a curve, where rows are apart enough to be told from one another.
void ReviewGraphWidget::readOut(double x) {
  const double time = sheet_.timeAt(x);
  const double pixel = scene_.span().length() / std::max(sheet_.plotArea().width(), 1);
  double found = time;
  double least = kSnap * pixel;
  for (const ReviewCurve& curve : shown().curves) {
    const TableGroup& group = scene_.group(curve.place);
    const std::int64_t behind = scene_.rowFrom(curve.place, time);
    for (const std::int64_t row : {behind - 1, behind}) {
      if (row < 0 || row >= group.rows()) continue;
      const double at = group.times[row] + scene_.offset(curve.place);
      if (std::abs(at - time) >= least) continue;
      least = std::abs(at - time);
      found = at;
    }
  }
  scene_.setCursor(ReviewCursor::Readout, found);
}

void ReviewGraphWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (!exists() || event->button() != Qt::LeftButton) return;
  prepare();
  const auto curve = curveAt(at);
  if (curve && (!sheet_.hasBars() || sheet_.isOnLaneName(at))) scene_.removeCurve(graph_, *curve);
}

void ReviewGraphWidget::leaveEvent(QEvent* event) {
  if (std::exchange(under_, std::nullopt)) update();
  QWidget::leaveEvent(event);
}

/// With Ctrl, the column of graphs is scrolled.
void ReviewGraphWidget::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) != 0 || !exists()) return event->ignore();
  prepare();
  const TimeSpan& span = scene_.span();
  wheel_.turn(*event, scene_,
              sheet_.isOverTime() ? sheet_.timeAt(event->position().x()) : (span.from + span.till) / 2);
  event->accept();
}

void ReviewGraphWidget::keyPressEvent(QKeyEvent* event) {
  if (exists() && event->modifiers() == Qt::NoModifier) {
    if (event->key() == Qt::Key_Up) return chooseNext(-1);
    if (event->key() == Qt::Key_Down) return chooseNext(1);
    if (event->key() == Qt::Key_Delete) return removeChosen();
  }
  if (!handleReviewKey(*event, scene_)) QWidget::keyPressEvent(event);
}

void ReviewGraphWidget::chooseNext(int by) {
  const auto& chosen = scene_.chosen();
  const int count = static_cast<int>(shown().curves.size());
  if (count == 0) return;
  const bool here = chosen && chosen->graph == graph_;
  const int next = here ? (static_cast<int>(chosen->curve) + by + count) % count : by > 0 ? 0 : count - 1;
  if (shown().ownScales) scene_.setAxis(graph_, static_cast<std::size_t>(next));
  scene_.choose(ReviewScene::Chosen{graph_, static_cast<std::size_t>(next)});
  scene_.bringChosen();
}

void ReviewGraphWidget::removeChosen() {
  const auto chosen = scene_.chosen();
  if (chosen && chosen->graph == graph_) scene_.removeCurve(graph_, chosen->curve);
}

/// With the keyboard, it is about the chosen curve and the readout.
void ReviewGraphWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (!exists()) return;
  prepare();
  const bool mouse = event->reason() == QContextMenuEvent::Mouse;
  const auto& chosen = scene_.chosen();
  const bool here = chosen && chosen->graph == graph_;
  const auto curve = mouse ? curveAt(event->pos()) : here ? std::optional(chosen->curve) : std::nullopt;
  const bool plot = sheet_.isOverTime() && sheet_.plotArea().contains(event->pos());
  const auto time = !mouse ? scene_.cursor(ReviewCursor::Readout)
                    : plot ? std::optional(sheet_.timeAt(event->pos().x()))
                           : std::nullopt;
  auto* const menu = new ReviewGraphMenu(scene_, graph_, curve, time, this);
  menu->popup(mouse ? event->globalPos() : mapToGlobal(sheet_.plotArea().topLeft()));
}

ReviewGraphWidget::Target ReviewGraphWidget::targetAt(const QPoint& at) const {
  if (at.y() < kEdge) return Target::Above;
  return at.y() >= height() - kEdge ? Target::Below : Target::Graph;
}

void ReviewGraphWidget::showTarget(Target target) {
  if (std::exchange(target_, target) != target) update();
}

void ReviewGraphWidget::dragEnterEvent(QDragEnterEvent* event) {
  if (exists() && event->mimeData()->hasFormat(QLatin1String(kDraggedCurves))) event->acceptProposedAction();
}

void ReviewGraphWidget::dragMoveEvent(QDragMoveEvent* event) {
  showTarget(targetAt(event->position().toPoint()));
  event->acceptProposedAction();
}

void ReviewGraphWidget::dragLeaveEvent(QDragLeaveEvent* /*event*/) { showTarget(Target::None); }

void ReviewGraphWidget::dropEvent(QDropEvent* event) {
  showTarget(Target::None);
  const std::vector<CurvePlace> places = draggedCurves(*event->mimeData(), scene_);
  if (places.empty() || !exists()) return;
  event->acceptProposedAction();
  const Target target = targetAt(event->position().toPoint());
  const std::size_t graph = graph_;
  if (target != Target::Graph)
    return scene_.addGraph(graphOf(scene_, places), target == Target::Above ? graph : graph + 1);
  for (const CurvePlace& place : places) scene_.addCurve(graph, place);
}

}  // namespace tarnlog
