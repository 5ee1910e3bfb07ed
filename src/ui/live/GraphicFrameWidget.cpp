#include "ui/live/GraphicFrameWidget.h"

#include <QEvent>

#include "ui/live/GraphMenu.h"

namespace tarnlog {

GraphicFrameWidget::GraphicFrameWidget(QWidget* parent) : QWidget(parent), readout_(new GraphReadout(*this)) {
  setObjectName(QStringLiteral("FrGraphic"));
  controls_.setGraphMade([this](GraphBlock& block) { prepare(block); });
  controls_.setEmptied([this] { setFrozen(false); });
}

void GraphicFrameWidget::prepare(GraphBlock& block) {
  CWGraph& graph = block.shown();
  readout_->watch(block);
  graph.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&graph, &QWidget::customContextMenuRequested, this, [this, &block](const QPoint& at) {
    readout_->hide();
    auto* const menu = new GraphMenu(block, [this, &block] { return pictureOf(block); });
    menu->popup(block.shown().mapToGlobal(at));
  });
}

void GraphicFrameWidget::setFrozen(bool frozen) {
  const bool now = frozen && !controls_.empty();
  if (now != frozen_) controls_.setFrozen(now);
  const bool changed = std::exchange(frozen_, now) != now || now != frozen;
  if (changed) emit frozenChanged(now);
}

QPixmap GraphicFrameWidget::pictureOf(const GraphBlock& block) {
  readout_->hide();
  const CWGraph& graph = block.shown();
  return grab(QRect(0, graph.y(), width(), graph.height()));
}

void GraphicFrameWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) controls_.restyle();
  QWidget::changeEvent(event);
}

}  // namespace tarnlog
