#include "ui/live/GraphReadout.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnlog {
namespace {

std::vector<Hairline::Dot> dotsAt(const CWGraph& graph, std::int64_t point) {
  std::vector<Hairline::Dot> dots;
  for (int plot = 1; plot <= graph.plotCount(); ++plot)
    if (std::isfinite(graph.valueOf(plot, point)) &&
        (!graph.isXY() || std::isfinite(graph.xValueOf(plot, point))))
      dots.push_back({graph.placeOf(plot, point) - graph.plotArea().topLeft(), graph.plotColour(plot)});
  return dots;
}

}  // namespace

GraphReadout::GraphReadout(QWidget& frame)
    : QObject(&frame), frame_(frame), line_(new Hairline(&frame)), box_(new ReadingBox(&frame)) {}

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
  if (block->second == current_) hide();
  blocks_.erase(block);
}

void GraphReadout::hide() {
  current_ = nullptr;
  line_->hide();
  box_->hide();
}

void GraphReadout::point(GraphBlock& block, const QPoint& at) {
  current_ = &block;
  at_ = at;
  refresh();
}

void GraphReadout::refresh() {
  refreshDue_ = false;
  if (current_ == nullptr) return;
  const CWGraph& graph = current_->shown();
  const std::int64_t point = graph.plotArea().contains(at_) ? graph.pointAt(at_) : -1;
  if (point < 0) {
    line_->hide();
    box_->hide();
    return;
  }
  const QPoint place = graph.placeOf(1, point).toPoint();
  const QPoint anchor(place.x(), at_.y());
  reading_ = readPoint(*current_, point);
  line_->showAt(graph.plotArea().translated(graph.pos()), place.x() - graph.plotArea().left(),
                dotsAt(graph, point));
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
  this->point(block, graph.isXY() ? place : QPoint(place.x(), y));
  graph.setAccessibleDescription(reading_.text());
}

bool GraphReadout::handleKey(GraphBlock& block, int key, Qt::KeyboardModifiers modifiers) {
  const CWGraph& graph = block.shown();
  if (key == Qt::Key_Escape && isShown()) return hide(), true;
  const std::int64_t newest = graph.endPoint() - 1;
  if (newest < 0) return false;
  const std::int64_t at = current_ == &block ? graph.pointAt(at_) : newest;
  // At least as far as the next pixel, so that the line moves.
  const std::int64_t pixel = graph.isXY() ? 1 : graph.history() / std::max(graph.plotArea().width(), 1) + 1;
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

bool GraphReadout::eventFilter(QObject* watched, QEvent* event) {
  const auto found = blocks_.find(watched);
  if (found == blocks_.end()) return false;
  GraphBlock& block = *found->second;
  switch (event->type()) {
    case QEvent::MouseMove:
      point(block, static_cast<QMouseEvent*>(event)->position().toPoint());
      return false;
    case QEvent::Leave:
    case QEvent::FocusOut:
    case QEvent::Hide:
      if (current_ == &block) hide();
      return false;
    case QEvent::Paint:
      if (current_ == &block) refreshSoon();
      return false;
    case QEvent::KeyPress: {
      const auto* const key = static_cast<QKeyEvent*>(event);
      return handleKey(block, key->key(), key->modifiers());
    }
    default:
      return false;
  }
}

}  // namespace tarnlog
