#include "ui/live/LookBack.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace tarnlog {
namespace {

constexpr double kNearer = 0.8;      ///< for one step of the wheel or a key
constexpr double kWheelStep = 120;   ///< eighths of a degree
constexpr double kPannedPart = 0.1;  ///< of what is shown, for one step

}  // namespace

LookBack::LookBack(QWidget& frame, Graphs graphs, const GraphReadout& readout)
    : QObject(&frame),
      frame_(frame),
      graphs_(std::move(graphs)),
      readout_(readout),
      box_(new ReadingBox(&frame)) {
  box_->setObjectName("CursorBox");
}

void LookBack::watch(GraphBlock& block) { block.shown().installEventFilter(this); }

void LookBack::setActive(bool active) {
  if (std::exchange(active_, active) == active) return;
  drag_ = {};
  clearCursors();
  emit moved();
}

/// The time chart under the pointer, or the first one.
CWGraph* LookBack::leading() const {
  CWGraph* first = nullptr;
  for (GraphBlock* const block : graphs_()) {
    if (block->shown().isXY()) continue;
    if (block == readout_.block()) return &block->shown();
    if (first == nullptr) first = &block->shown();
  }
  return first;
}

double LookBack::anchor() const {
  const CWGraph* const graph = leading();
  const TimeView view = graph->view();
  const auto at = static_cast<double>(readout_.point());
  return at >= view.first && at <= view.last() ? at : view.first + view.count / 2;
}

void LookBack::show(const TimeView& view) {
  for (GraphBlock* const block : graphs_())
    if (!block->shown().isXY()) block->shown().setView(panned(view, 0, block->shown().keptPoints()));
  emit moved();
}

void LookBack::zoomAt(const CWGraph& graph, double factor, double anchor) {
  show(zoomed(graph.view(), factor, anchor, graph.keptPoints()));
}

/// A picture that shows all there is stays as it is, also while it is not full yet.
void LookBack::panBy(const CWGraph& graph, double points) {
  const PointSpan kept = graph.keptPoints();
  if (graph.view().count >= static_cast<double>(kept.end - kept.begin)) return;
  show(panned(graph.view(), points, graph.keptPoints()));
}

void LookBack::zoom(int steps) {
  const CWGraph* const graph = leading();
  if (active_ && graph != nullptr) zoomAt(*graph, std::pow(kNearer, steps), anchor());
}

void LookBack::pan(int steps) {
  const CWGraph* const graph = leading();
  if (active_ && graph != nullptr) panBy(*graph, steps * kPannedPart * graph->view().count);
}

/// All that the leading chart keeps.
void LookBack::fitAll() {
  const CWGraph* const graph = leading();
  if (!active_ || graph == nullptr) return;
  show(wholeView(graph->keptPoints()));
}

void LookBack::setCursor(CWGraph::Cursor cursor) {
  const CWGraph* const graph = leading();
  if (!active_ || graph == nullptr || graph->endPoint() == 0) return;
  setCursor(cursor, std::clamp<std::int64_t>(std::llround(anchor()), graph->keptPoints().begin,
                                             graph->endPoint() - 1));
}

void LookBack::setCursor(CWGraph::Cursor cursor, std::int64_t point) {
  if (!active_ || point < 0) return;
  std::int64_t& place = cursor == CWGraph::CursorA ? a_ : b_;
  place = place == point ? -1 : point;
  showCursors();
}

void LookBack::clearCursors() {
  a_ = b_ = -1;
  showCursors();
}

/// The table has the charts that are seen first: there may be no room for all.
void LookBack::showCursors() {
  auto blocks = graphs_();
  std::stable_partition(blocks.begin(), blocks.end(),
                        [](const GraphBlock* block) { return !block->shown().visibleRegion().isEmpty(); });
  for (GraphBlock* const block : blocks) {
    if (block->shown().isXY()) continue;
    block->shown().setCursor(CWGraph::CursorA, a_);
    block->shown().setCursor(CWGraph::CursorB, b_);
  }
  if (!hasCursors()) {
    reading_ = {};
    return box_->hide();
  }
  reading_ = readCursors(blocks, a_, b_);
  const QRect visible = frame_.visibleRegion().boundingRect();
  box_->showInCorner(reading_, visible.isEmpty() ? frame_.rect() : visible);
}

/// A menu may have taken the release: the button itself says whether it is held.
void LookBack::drag(CWGraph& graph, const QMouseEvent& move) {
  if ((move.buttons() & Qt::LeftButton) == 0) drag_ = {};
  const int x = move.position().toPoint().x();
  if (drag_.graph == &graph && x != drag_.x)
    panBy(graph, graph.pointAtX(std::exchange(drag_.x, x)) - graph.pointAtX(x));
}

bool LookBack::wheel(CWGraph& graph, const QWheelEvent& event) {
  const QPoint turned = event.angleDelta();
  const bool sideways = std::abs(turned.x()) > std::abs(turned.y());  // fingers never go quite straight
  const double steps = (sideways ? turned.x() : turned.y()) / kWheelStep;
  if (sideways || (event.modifiers() & Qt::ShiftModifier) != 0)
    panBy(graph, -steps * kPannedPart * graph.view().count);
  else
    zoomAt(graph, std::pow(kNearer, steps), graph.pointAtX(event.position().x() - graph.plotArea().left()));
  return true;
}

/// Before a shortcut of the same key.
bool LookBack::escape(QKeyEvent& event) {
  if (event.key() != Qt::Key_Escape || !hasCursors() || readout_.isShown()) return false;
  if (event.type() == QEvent::KeyPress) clearCursors();
  event.accept();
  return true;
}

bool LookBack::eventFilter(QObject* watched, QEvent* event) {
  auto* const graph = qobject_cast<CWGraph*>(watched);
  if (!active_ || graph == nullptr || graph->isXY()) return false;
  switch (event->type()) {
    case QEvent::Wheel:
      return wheel(*graph, *static_cast<QWheelEvent*>(event));
    case QEvent::MouseButtonPress: {
      const auto& press = *static_cast<QMouseEvent*>(event);
      if (press.button() == Qt::LeftButton) drag_ = {graph, press.position().toPoint().x()};
      return false;
    }
    case QEvent::MouseButtonRelease:
      drag_ = {};
      return false;
    case QEvent::MouseMove:
      drag(*graph, *static_cast<QMouseEvent*>(event));
      return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
      return escape(*static_cast<QKeyEvent*>(event));
    default:
      return false;
  }
}

}  // namespace tarnlog
