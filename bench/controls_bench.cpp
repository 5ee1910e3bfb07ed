// Does a graph that scrolls cost what changes, and one that is drawn anew what its pixels cost? Twenty graphs
// of three curves against as many plain widgets that draw every point with QPainter::drawPolyline. With all
// that a graph can show: what do times and flags add, and what does looking back through a million points
// cost?

#include <QApplication>
#include <QPainter>
#include <QPolygonF>
#include <QWidget>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "platform/controls/CWGraph.h"

namespace {

using namespace tarnlog;

constexpr int kGraphs = 20;
constexpr int kCurves = 3;
constexpr QSize kSize(600, 120);
constexpr int kSpeed = 500;     ///< points
constexpr int kLong = 100'000;  ///< points
constexpr int kLookedAtGraphs = 10;
constexpr int kPlain = 1000;      ///< points of a plain curve to compare a look back with
constexpr int kFew = 10'000;      ///< points that are kept
constexpr int kMany = 1'000'000;  ///< points that are kept
constexpr double kStep = 50;      ///< milliseconds between points
constexpr double kPause = 3000;   ///< milliseconds more, now and then
constexpr int kEventEvery = 100;  ///< points
constexpr int kWarm = 2000;       ///< points after which memory is used again
const QColor kColours[kCurves] = {QColor(200, 0, 0), QColor(0, 120, 0), QColor(0, 0, 200)};

/// A slow wave, a saw tooth and a level that jumps, as measured signals do.
double signal(int curve, int point) {
  if (curve == 0) return 50 + 40 * std::sin(point / 25.0) + point * 7919 % 13;
  return curve == 1 ? point % 70 : (point / 40 % 2 == 0 ? 20 : 85);
}

/// Draws what it keeps, whole, each time.
class PlainGraph : public QWidget {
 public:
  PlainGraph(QWidget* parent, int history) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (QPolygonF& curve : curves_) curve.resize(history);
    for (int curve = 0; curve < kCurves; ++curve)
      for (int point = 0; point < history; ++point) chartY(curve, point);
  }
  void chartY(int curve, int point) { values_[curve].push_back(signal(curve, point)); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    for (int curve = 0; curve < kCurves; ++curve) {
      QPolygonF& points = curves_[curve];
      const auto count = static_cast<std::size_t>(points.size());
      const double* const values = values_[curve].data() + values_[curve].size() - count;
      const double wide = static_cast<double>(width()) / static_cast<double>(count);
      const double high = height() / 100.0;
      QPointF* const target = points.data();
      for (std::size_t i = 0; i < count; ++i)
        target[i] = {static_cast<double>(i) * wide, height() - values[i] * high};
      painter.setPen(QPen(kColours[curve], 1));
      painter.drawPolyline(points);
    }
  }

 private:
  std::vector<double> values_[kCurves];
  QPolygonF curves_[kCurves];
};

/// A window with a column of graphs, painted into its backing store when told to.
template <class Graph>
class Window {
 public:
  explicit Window(int history, int graphs = kGraphs) : next_(history), moment_(history * kStep) {
    window_.resize(kSize.width(), kSize.height() * graphs);
    for (int i = 0; i < graphs; ++i) {
      graphs_.push_back(makeGraph(history));
      graphs_.back()->setGeometry(0, i * kSize.height(), kSize.width(), kSize.height());
    }
    window_.show();
    QApplication::processEvents();
  }

  /// A new point on every curve.
  void step() {
    for (Graph* graph : graphs_)
      for (int curve = 0; curve < kCurves; ++curve) addPoint(*graph, curve);
    ++next_;
    moment_ += kStep;
  }
  void pause() { moment_ += kPause; }
  void redrawAll();
  const std::vector<Graph*>& graphs() const { return graphs_; }
  void paint() {
    for (Graph* graph : graphs_) graph->update(paintedArea(*graph));
    QEvent now(QEvent::UpdateRequest);
    QApplication::sendEvent(&window_, &now);
  }

 private:
  Graph* makeGraph(int history);
  void addPoint(Graph& graph, int curve);
  static QRect paintedArea(const Graph& graph);

  QWidget window_;
  std::vector<Graph*> graphs_;
  int next_;
  double moment_;
};

template <>
PlainGraph* Window<PlainGraph>::makeGraph(int history) {
  return new PlainGraph(&window_, history);
}
template <>
void Window<PlainGraph>::addPoint(PlainGraph& graph, int curve) {
  graph.chartY(curve, next_);
}
template <>
QRect Window<PlainGraph>::paintedArea(const PlainGraph& graph) {
  return graph.rect();
}

template <>
CWGraph* Window<CWGraph>::makeGraph(int history) {
  auto* const graph = new CWGraph(&window_);
  graph->setHistory(history);
  graph->setAxisRange(CWGraph::YAxis, 0, 100);
  for (int curve = 0; curve < kCurves; ++curve) {
    graph->addPlot();
    graph->setPlotColour(curve + 1, kColours[curve]);
    for (int point = 0; point < history; ++point)
      graph->chartY(curve + 1, signal(curve, point), point * kStep);
  }
  return graph;
}
template <>
void Window<CWGraph>::addPoint(CWGraph& graph, int curve) {
  graph.chartY(curve + 1, signal(curve, next_), moment_);
}
template <>
QRect Window<CWGraph>::paintedArea(const CWGraph& graph) {
  return graph.plotArea();
}
/// Any change of an axis has all drawn anew.
template <>
void Window<CWGraph>::redrawAll() {
  for (CWGraph* graph : graphs_) graph->setAxisRange(CWGraph::YAxis, 0, 100 + next_ % 2);
}

void plain(benchmark::State& state) {
  Window<PlainGraph> window(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    window.step();
    window.paint();
  }
}

void scroll(benchmark::State& state) {
  Window<CWGraph> window(static_cast<int>(state.range(0)));
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) {
    window.step();
    window.paint();
  }
  state.counters["allocations"] =
      static_cast<double>(bench::allocationCount() - before) / static_cast<double>(state.iterations());
}

void redraw(benchmark::State& state) {
  Window<CWGraph> window(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    window.step();
    window.redrawAll();
    window.paint();
  }
}

/// With an axis that follows its points, pauses, the readout and, where told, times in the grid, at the
/// lowest graph as texts, and flags.
class FullWindow : public Window<CWGraph> {
 public:
  FullWindow(int graphs, bool timed) : Window(kSpeed, graphs), timed_(timed) {
    for (CWGraph* const graph : this->graphs()) {
      graph->setAxisAutoscale(CWGraph::YAxis, true);
      graph->setTimeGrid(timed);
      graph->setTimeLabels(timed && graph == this->graphs().back());
    }
  }
  void drive(int points, int eventEvery) {
    for (int i = 0; i < points; ++i) {
      if (i % eventEvery == 0) interrupt();
      step();
    }
  }
  void interrupt() {
    pause();
    ++events_;
    for (CWGraph* const graph : graphs())
      if (timed_) graph->addMark(QStringLiteral("Event %1").arg(events_), Qt::darkGreen);
  }
  void read(std::int64_t back) {
    for (CWGraph* const graph : graphs()) graph->setCursor(CWGraph::Readout, graph->endPoint() - back);
  }

 private:
  bool timed_;
  int events_ = 0;
};

/// With times and flags or without; while flags go on coming, or with those that were there before. Each
/// curve has its own scale, and one of them a rim.
void scrollFull(benchmark::State& state) {
  FullWindow window(kGraphs, state.range(0) != 0);
  for (CWGraph* const graph : window.graphs()) {
    graph->setPlotColour(kCurves, Qt::yellow);
    graph->setOwnScales(true);
  }
  const bool events = state.range(1) != 0;
  int steps = 0;
  const auto step = [&] {
    if (events && ++steps % kEventEvery == 0) window.interrupt();
    window.step();
    window.read(kSpeed / 2);
    window.paint();
  };
  window.drive(kWarm, kEventEvery);
  for (int i = 0; i < kEventEvery; ++i) step();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) step();
  state.counters["allocations"] =
      static_cast<double>(bench::allocationCount() - before) / static_cast<double>(state.iterations());
}

void plainLook(benchmark::State& state) {
  Window<PlainGraph> window(kPlain, kLookedAtGraphs);
  for (auto _ : state) window.paint();
}

/// Through so many points that are kept: all of them, then nearer and nearer, and sideways. Curves cover what
/// those of the plain widgets do; all of them with a rim, or none.
void lookBack(benchmark::State& state) {
  constexpr int kEvents = 20;
  const auto kept = static_cast<int>(state.range(0));
  FullWindow window(kLookedAtGraphs, true);
  for (CWGraph* const graph : window.graphs()) {
    graph->setKept(kept);
    graph->setOwnScales(true);
    for (int plot = 1; plot <= kCurves && state.range(1) != 0; ++plot) graph->setPlotColour(plot, Qt::yellow);
  }
  window.drive(kept - kSpeed, kept / kEvents);
  for (CWGraph* const graph : window.graphs()) {
    graph->setFrozen(true);
    graph->setCursor(CWGraph::CursorA, kept / 3);
    graph->setCursor(CWGraph::CursorB, kept / 2);
  }
  int look = 0;
  for (auto _ : state) {
    const double part = 1 - 0.12 * (look % 8);
    const TimeView view{kept * (1 - part) * (look % 5) / 4, kept * part};
    for (CWGraph* const graph : window.graphs()) graph->setView(view);
    window.read(kept / 4);
    window.paint();
    ++look;
  }
}

BENCHMARK(plain)->Arg(kSpeed)->Arg(kLong)->Unit(benchmark::kMicrosecond);
BENCHMARK(scroll)->Arg(kSpeed)->Arg(kLong)->Unit(benchmark::kMicrosecond);
BENCHMARK(redraw)->Arg(kSpeed)->Arg(kLong)->Unit(benchmark::kMicrosecond);
BENCHMARK(scrollFull)->ArgsProduct({{0, 1}, {0, 1}})->Unit(benchmark::kMicrosecond);
BENCHMARK(plainLook)->Unit(benchmark::kMicrosecond);
BENCHMARK(lookBack)->Args({kFew, 0})->Args({kMany, 0})->Args({kMany, 1})->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  using tarnlog::bench::atMost;
  tarnlog::bench::Goals goals;
  goals.ratio("scroll_500_points", "scroll/500", "plain/500", atMost(0.25));
  goals.ratio("redraw_500_points", "redraw/500", "plain/500", atMost(0.6));
  goals.ratio("scroll_100000_points", "scroll/100000", "plain/100000", atMost(0.1));
  goals.ratio("redraw_100000_points", "redraw/100000", "plain/100000", atMost(0.1));
  goals.ratio("scroll_with_times_and_flags", "scrollFull/1/1", "scrollFull/0/1", atMost(1.15));
  goals.ratio("allocations_with_times_and_flags", "scrollFull/1/0", "scrollFull/0/0", atMost(1.01),
              "allocations");
  goals.ratio("look_back_1000000_points", "lookBack/1000000/0", "plainLook", atMost(1));
  goals.ratio("look_back_with_rims", "lookBack/1000000/1", "plainLook", atMost(1));
  goals.ratio("look_back_1000000_to_10000_points", "lookBack/1000000/0", "lookBack/10000/0", atMost(1.5));
  return goals.run(argc, argv);
}
