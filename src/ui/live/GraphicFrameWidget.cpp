#include "ui/live/GraphicFrameWidget.h"

#include <QEvent>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>

#include "ui/live/GraphMenu.h"

namespace tarnlog {
namespace {

constexpr double kBytesPerPoint = 9;  ///< with the summaries

bool sameTimes(const CWGraph& a, const CWGraph& b) {
  return a.history() == b.history() && a.plotArea().width() == b.plotArea().width();
}

/// They stand at the lower edge of the curves.
bool showsTimes(const CWGraph& graph) {
  const QRect area = graph.plotArea();
  return graph.visibleRegion().boundingRect().contains(area.center().x(), area.bottom());
}

}  // namespace

GraphicFrameWidget::GraphicFrameWidget(QWidget* parent)
    : QWidget(parent),
      readout_(new GraphReadout(*this)),
      lookBack_(new LookBack(
          *this, [this] { return controls_.graphs(); }, *readout_)) {
  setObjectName(QStringLiteral("FrGraphic"));
  controls_.setGraphMade([this](GraphBlock& block) { prepare(block); });
  controls_.setEmptied([this] { setFrozen(false); });
}

void GraphicFrameWidget::setSettings(SettingsStore* settings) {
  choices_ = GraphChoices(settings);
  applyChoices();
}

void GraphicFrameWidget::prepare(GraphBlock& block) {
  CWGraph& graph = block.shown();
  readout_->watch(block);
  lookBack_->watch(block);
  graph.installEventFilter(this);
  graph.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&graph, &QWidget::customContextMenuRequested, this,
          [this, &block](const QPoint& at) { showMenu(block, at); });
  arrangeSoon();
}

void GraphicFrameWidget::showMenu(GraphBlock& block, const QPoint& at) {
  auto* const menu = new GraphMenu(block, [this, &block] { return pictureOf(block); });
  menu->addChoices(choices_, [this] { applyChoices(); });
  if (frozen_ && !block.shown().isXY()) menu->addLookBack(*lookBack_, pointFor(block, at));
  readout_->hide();
  menu->popup(block.shown().mapToGlobal(at));
}

/// Cursors that the menu sets go to the readout, which the keys may have moved; else to the pointer.
std::int64_t GraphicFrameWidget::pointFor(GraphBlock& block, const QPoint& at) const {
  return readout_->block() == &block ? readout_->point() : block.shown().pointAt(at);
}

/// Once all that is being built, moved or resized now has its place.
void GraphicFrameWidget::arrangeSoon() {
  if (std::exchange(arrangeDue_, true)) return;
  QTimer::singleShot(0, this, [this] { arrange(); });
}

void GraphicFrameWidget::arrange() {
  arrangeDue_ = false;
  applyChoices();
  lookBack_->showCursors();
}

void GraphicFrameWidget::applyChoices() {
  const auto graphs = controls_.graphs();
  for (GraphBlock* const block : graphs) block->apply(choices_);
  shareMemory(graphs);
  placeTimes(graphs);
}

/// Every series of every time chart gets the same part; each chart has one of its times, too.
void GraphicFrameWidget::shareMemory(const std::vector<GraphBlock*>& graphs) {
  int series = 0;
  for (GraphBlock* const block : graphs) series += block->shown().plotCount() + 1;
  const double points = choices_.megabytes() * 1e6 / kBytesPerPoint / std::max(series, 1);
  const int kept = static_cast<int>(std::min(points, static_cast<double>(PlotHistory::kMostPoints)));
  for (GraphBlock* const block : graphs) block->shown().setKept(kept);
}

/// The lowest chart whose times would be seen has the times of those above it, as long as theirs are the
/// same.
void GraphicFrameWidget::placeTimes(const std::vector<GraphBlock*>& graphs) {
  std::vector<CWGraph*> charts;
  for (GraphBlock* const block : graphs)
    if (!block->shown().isXY()) charts.push_back(&block->shown());
  std::sort(charts.begin(), charts.end(), [](const CWGraph* a, const CWGraph* b) { return a->y() > b->y(); });
  const CWGraph* below = nullptr;
  for (CWGraph* const chart : charts) {
    chart->setTimeLabels(choices_.times() && (below == nullptr || !sameTimes(*chart, *below)));
    if (showsTimes(*chart)) below = chart;
  }
}

void GraphicFrameWidget::setFrozen(bool frozen) {
  const bool now = frozen && !controls_.empty();
  if (std::exchange(frozen_, now) != now) controls_.setFrozen(now);
  lookBack_->setActive(now);
}

void GraphicFrameWidget::addMark(const QString& text, const QColor& colour) {
  for (GraphBlock* const block : controls_.graphs()) block->shown().addMark(text, colour);
}

QPixmap GraphicFrameWidget::pictureOf(GraphBlock& block) {
  readout_->hide();
  CWGraph& graph = block.shown();
  const bool labels = graph.timeLabels();
  graph.setTimeLabels(choices_.times());
  lookBack_->showBox(false);
  QPixmap picture = grab(QRect(0, graph.y(), width(), graph.height()));
  lookBack_->showBox(true);
  graph.setTimeLabels(labels);
  return picture;
}

std::optional<double> GraphicFrameWidget::shownTime() const {
  const CWGraph* lowest = nullptr;
  for (const GraphBlock* const block : controls_.graphs()) {
    const CWGraph& graph = block->shown();
    if (block->knowsMoments() && !graph.visibleRegion().isEmpty() &&
        (lowest == nullptr || graph.y() > lowest->y()))
      lowest = &graph;
  }
  if (lowest == nullptr) return std::nullopt;
  const TimeLine& times = lowest->times();
  const std::int64_t first = lowest->firstPoint();
  const std::int64_t last = lowest->endShown() - 1;
  if (!times.knows(first) || !times.knows(last)) return std::nullopt;
  return times.momentOf(last) - times.momentOf(first);
}

bool GraphicFrameWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move || event->type() == QEvent::Show)
    arrangeSoon();
  return QWidget::eventFilter(watched, event);
}

/// Scrolled: another chart is the lowest.
void GraphicFrameWidget::moveEvent(QMoveEvent* event) {
  arrangeSoon();
  QWidget::moveEvent(event);
}

void GraphicFrameWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) controls_.restyle();
  QWidget::changeEvent(event);
}

/// On the labels beside a graph: its axis becomes that of the curve.
void GraphicFrameWidget::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  for (GraphBlock* const block : controls_.graphs()) {
    const CWGraph& graph = block->shown();
    if (!graph.ownScales() || at.x() >= graph.x() || at.y() < graph.y() ||
        at.y() >= graph.geometry().bottom())
      continue;
    choices_.setAxis(block->name(), 1 + (at.y() - graph.y()) * graph.plotCount() / graph.height());
    applyChoices();
  }
  QWidget::mousePressEvent(event);
}

}  // namespace tarnlog
