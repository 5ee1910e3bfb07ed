#include "ui/live/GraphReadout.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnlog {

GraphReadout::GraphReadout(QWidget& frame) : QObject(&frame), frame_(frame), box_(new ReadingBox(&frame)) {}

void GraphReadout::watch(GraphBlock& block) {
  CWGraph& graph = block.shown();
  if (!blocks_.emplace(&graph, &block).second) return;
  graph.setMouseTracking(true);
  graph.setFocusPolicy(Qt::StrongFocus);
  graph.installEventFilter(this);
  connect(&graph, &QObject::destroyed, this, [this](QObject* gone) { forget(gone); });
}

void GraphReadout::forget(QObject* graph) {
  const auto block = blocks_.find(graph);
  if (block == blocks_.end()) return;
  const bool shown = block->second == current_;
  blocks_.erase(block);
  if (shown) hide();
}

void GraphReadout::hide() {
  current_ = nullptr;
  point_ = -1;
  showLines();
  box_->hide();
}

/// One line through all time charts; the points of an X-Y graph have no place in others.
void GraphReadout::showLines() {
  const bool all = current_ != nullptr && !current_->shown().isXY();
  for (const auto& [widget, block] : blocks_) {
    const bool lined = block == current_ || (all && !block->shown().isXY());
    block->shown().setCursor(CWGraph::Readout, lined ? point_ : -1);
  }
}

/// The other time charts that are seen now, from top to bottom.
std::vector<GraphBlock*> GraphReadout::seenWith(const GraphBlock& block) const {
  std::vector<GraphBlock*> seen;
  for (const auto& [widget, other] : blocks_)
    if (other != &block && !block.shown().isXY() && !other->shown().isXY() &&
        !other->shown().visibleRegion().isEmpty())
      seen.push_back(other);
  std::sort(seen.begin(), seen.end(),
            [](const GraphBlock* a, const GraphBlock* b) { return a->shown().y() < b->shown().y(); });
  return seen;
}

void GraphReadout::pointTo(GraphBlock& block, const QPoint& at) {
  current_ = &block;
  at_ = at;
  refresh();
}

void GraphReadout::refresh() {
  refreshDue_ = false;
  if (current_ == nullptr) return;
  const CWGraph& graph = current_->shown();
  point_ = graph.plotArea().contains(at_) ? graph.pointAt(at_) : -1;
  showLines();
  if (point_ < 0) return box_->hide();
  const QPoint anchor(graph.placeOf(1, point_).toPoint().x(), at_.y());
  reading_ = readPoint(*current_, point_, seenWith(*current_));
  const QRect visible = frame_.visibleRegion().boundingRect();
  box_->setFont(graph.font());
  box_->showBeside(reading_, graph.pos() + anchor, visible.isEmpty() ? frame_.rect() : visible);
}

/// The graph was painted: other points may stand under the pointer.
void GraphReadout::refreshSoon() {
  if (std::exchange(refreshDue_, true)) return;
  QTimer::singleShot(0, this, [this] { refresh(); });
}

void GraphReadout::move(GraphBlock& block, std::int64_t point) {
  CWGraph& graph = block.shown();
  point = std::clamp(point, graph.firstPoint(), std::max(graph.endPoint() - 1, graph.firstPoint()));
  const int y = isShown() ? at_.y() : graph.plotArea().center().y();
  const QPoint place = graph.placeOf(1, point).toPoint();
  pointTo(block, graph.isXY() ? place : QPoint(place.x(), y));
  graph.setAccessibleDescription(reading_.text());
}

bool GraphReadout::handleKey(GraphBlock& block, int key, Qt::KeyboardModifiers modifiers) {
  const CWGraph& graph = block.shown();
  if (key == Qt::Key_Escape && isShown()) return hide(), true;
  const std::int64_t newest = graph.endPoint() - 1;
  if (newest < 0) return false;
  const std::int64_t at = current_ == &block ? graph.pointAt(at_) : newest;
  // At least as far as the next pixel, so that the line moves.
  const int wide = std::max(graph.plotArea().width(), 1);
  const std::int64_t pixel = graph.isXY() ? 1 : static_cast<std::int64_t>(graph.view().count / wide) + 1;
  const std::int64_t step = pixel * ((modifiers & Qt::ControlModifier) != 0 ? 10 : 1);
  switch (key) {
    case Qt::Key_Left:
      return move(block, at - step), true;
    case Qt::Key_Right:
      return move(block, at + step), true;
    case Qt::Key_Home:
      return move(block, graph.firstPoint()), true;
    case Qt::Key_End:
      return move(block, newest), true;
    default:
      return false;
  }
}

/// A graph that is being destroyed loses the focus as a mere widget.
bool GraphReadout::eventFilter(QObject* watched, QEvent* event) {
  if (qobject_cast<CWGraph*>(watched) == nullptr) return false;
  const auto found = blocks_.find(watched);
  if (found == blocks_.end()) return false;
  GraphBlock& block = *found->second;
  switch (event->type()) {
    case QEvent::MouseMove:
      pointTo(block, static_cast<QMouseEvent*>(event)->position().toPoint());
      return false;
    case QEvent::Leave:
    case QEvent::FocusOut:
    case QEvent::Hide:
      if (current_ == &block) hide();
      return false;
    case QEvent::Paint:
      if (current_ == &block) refreshSoon();
      return false;
    case QEvent::ShortcutOverride:  // Escape first ends this, then what else it may end
      if (!isShown() || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
      event->accept();
      return true;
    case QEvent::KeyPress: {
      const auto* const key = static_cast<QKeyEvent*>(event);
      return handleKey(block, key->key(), key->modifiers());
    }
    default:
      return false;
  }
}

}  // namespace tarnlog
