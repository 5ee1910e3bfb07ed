#include "ui/review/ReviewGraphs.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include "ui/review/CurveDrag.h"
#include "ui/review/GraphKinds.h"
#include "ui/review/ReviewGraphWidget.h"
#include "ui/review/ReviewKeys.h"
#include "ui/review/TimeAxis.h"

namespace tarnlog {

ReviewGraphs::ReviewGraphs(ReviewScene& scene, QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      scroll_(new QScrollArea(this)),
      column_(new QSplitter(Qt::Vertical)),
      axis_(new TimeAxis(scene, this)) {
  setAcceptDrops(true);
  scroll_->setWidget(column_);
  scroll_->setWidgetResizable(true);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setAccessibleName(tr("Graphs"));
  scroll_->viewport()->installEventFilter(this);
  column_->setChildrenCollapsible(false);
  column_->setHandleWidth(5);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(scroll_, 1);
  layout->addWidget(axis_);
  arrange();
  scene.addListener([self = QPointer<ReviewGraphs>(this)](unsigned changes) {
    if (self) self->react(changes);
  });
}

void ReviewGraphs::react(unsigned changes) {
  if ((changes & kRecordsChanged) != 0) seen_->forget();
  if ((changes & kGraphsChanged) != 0) arrange();
  for (ReviewGraphWidget* const graph : graphs_) graph->react(changes);
  if ((changes & (kSpanChanged | kCursorsChanged | kRecordsChanged)) != 0) axis_->update();
  if ((changes & kGraphsChanged) != 0) placeAxis();
  if ((changes & kChosenWanted) != 0) showChosen();
}

/// A graph that has just come has its place once the layout is asked.
void ReviewGraphs::showChosen() {
  const auto& chosen = scene_.chosen();
  if (!chosen || chosen->graph >= graphs_.size()) return;
  QCoreApplication::sendPostedEvents(column_, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(scroll_->viewport(), QEvent::LayoutRequest);
  scroll_->ensureWidgetVisible(graphs_[chosen->graph], 0, 0);
}

/// As many widgets as there are graphs. Those that stay keep their heights.
void ReviewGraphs::arrange() {
  const bool focused = !graphs_.empty() && graphs_.back()->hasFocus();
  while (graphs_.size() > scene_.graphs().size()) {
    graphs_.back()->setParent(nullptr);
    graphs_.back()->deleteLater();
    graphs_.pop_back();
    if (focused && !graphs_.empty()) graphs_.back()->setFocus();
  }
  while (graphs_.size() < scene_.graphs().size()) {
    graphs_.push_back(new ReviewGraphWidget(scene_, graphs_.size(), seen_, column_));
    column_->addWidget(graphs_.back());
    column_->setStretchFactor(static_cast<int>(graphs_.size()) - 1, 1);
  }
  for (ReviewGraphWidget* const graph : graphs_) graph->show();
  setFocusProxy(graphs_.empty() ? nullptr : graphs_.front());
}

void ReviewGraphs::placeAxis() {
  if (graphs_.empty()) return axis_->setPlot(0, width());
  ReviewGraphWidget& graph = *graphs_.front();
  const QRect area = graph.plotArea();
  axis_->setPlot(graph.mapTo(this, area.topLeft()).x(), area.width());
}

void ReviewGraphs::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeAxis();
}

/// A scroll bar that comes makes the graphs narrower.
bool ReviewGraphs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize)
    QMetaObject::invokeMethod(
        this, [this] { placeAxis(); }, Qt::QueuedConnection);
  return QWidget::eventFilter(watched, event);
}

void ReviewGraphs::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(QLatin1String(kDraggedCurves))) event->acceptProposedAction();
}

void ReviewGraphs::dragMoveEvent(QDragMoveEvent* event) {
  showTarget(graphBelow(event->position().toPoint()));
  event->acceptProposedAction();
}

void ReviewGraphs::dragLeaveEvent(QDragLeaveEvent* /*event*/) { showTarget(std::nullopt); }

/// The one that a place between graphs is before; their number behind the last one.
std::size_t ReviewGraphs::graphBelow(const QPoint& at) const {
  std::size_t graph = 0;
  while (graph < graphs_.size() && graphs_[graph]->mapTo(this, graphs_[graph]->rect().center()).y() <= at.y())
    ++graph;
  return graph;
}

void ReviewGraphs::showTarget(std::optional<std::size_t> before) {
  using Target = ReviewGraphWidget::Target;
  for (std::size_t i = 0; i < graphs_.size(); ++i) {
    const bool last = before == graphs_.size() && i + 1 == graphs_.size();
    graphs_[i]->showTarget(before == i ? Target::Above : last ? Target::Below : Target::None);
  }
}

/// Beside all graphs, or on a line between two.
void ReviewGraphs::dropEvent(QDropEvent* event) {
  showTarget(std::nullopt);
  const auto places = draggedCurves(*event->mimeData(), scene_);
  if (places.empty()) return;
  event->acceptProposedAction();
  scene_.addGraph(graphOf(scene_, places), graphBelow(event->position().toPoint()));
}

void ReviewGraphs::keyPressEvent(QKeyEvent* event) {
  if (!handleReviewKey(*event, scene_)) QWidget::keyPressEvent(event);
}

}  // namespace tarnlog
