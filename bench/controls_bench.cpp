// Does a graph that scrolls cost what changes, and one that is drawn anew what its pixels cost? Twenty graphs
// of three curves against as many plain widgets that draw every point with QPainter::drawPolyline. What do
// times and flags add, and what does looking back through a million points cost?

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
  explicit Window(int history, int graphs = kGraphs) : next_(history) {
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
  }
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
  graph.chartY(curve + 1, signal(curve, next_), next_ * kStep);
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

/// With times in the grid, at the lowest graph as texts, and five flags; or without.
void scrollTimed(benchmark::State& state) {
  const bool on = state.range(0) != 0;
  Window<CWGraph> window(kSpeed);
  for (CWGraph* const graph : window.graphs()) {
    graph->setTimeGrid(on);
    graph->setTimeLabels(on && graph == window.graphs().back());
  }
  int steps = 0;
  const auto step = [&] {
    for (CWGraph* const graph : window.graphs())
      if (on && steps % 100 == 0) graph->addMark(QStringLiteral("Event 1"), Qt::darkGreen);
    ++steps;
    window.step();
    window.paint();
  };
  for (int i = 0; i < kSpeed; ++i) step();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) step();
  state.counters["allocations"] =
      static_cast<double>(bench::allocationCount() - before) / static_cast<double>(state.iterations());
}

void plainLook(benchmark::State& state) {
  Window<PlainGraph> window(kPlain, kLookedAtGraphs);
  for (auto _ : state) window.paint();
}

/// Through so many points that are kept: all of them, then nearer and nearer, and sideways.
void lookBack(benchmark::State& state) {
  const auto kept = static_cast<int>(state.range(0));
  Window<CWGraph> window(kSpeed, kLookedAtGraphs);
  for (CWGraph* const graph : window.graphs()) {
    graph->setKept(kept);
    for (int point = kSpeed; point < kept; ++point)
      for (int curve = 0; curve < kCurves; ++curve)
        graph->chartY(curve + 1, signal(curve, point), point * kStep);
    graph->setFrozen(true);
  }
  int look = 0;
  for (auto _ : state) {
    const double part = 1 - 0.12 * (look % 8);
    const TimeView view{kept * (1 - part) * (look % 5) / 4, kept * part};
    for (CWGraph* const graph : window.graphs()) graph->setView(view);
    window.paint();
    ++look;
  }
}

BENCHMARK(plain)->Arg(kSpeed)->Arg(kLong)->Unit(benchmark::kMicrosecond);
BENCHMARK(scroll)->Arg(kSpeed)->Arg(kLong)->Unit(benchmark::kMicrosecond);
BENCHMARK(redraw)->Arg(kSpeed)->Arg(kLong)->Unit(benchmark::kMicrosecond);
BENCHMARK(scrollTimed)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainLook)->Unit(benchmark::kMicrosecond);
BENCHMARK(lookBack)->Arg(kFew)->Arg(kMany)->Unit(benchmark::kMicrosecond);

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
  goals.ratio("scroll_with_times_and_flags", "scrollTimed/1", "scrollTimed/0", atMost(1.15));
  goals.ratio("look_back_1000000_points", "lookBack/1000000", "plainLook", atMost(1));
  goals.ratio("look_back_1000000_to_10000_points", "lookBack/1000000", "lookBack/10000", atMost(1.5));
  return goals.run(argc, argv);
}
