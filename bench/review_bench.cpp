// Does looking at a long record cost what its pixels cost? Zoom and pan through 30 curves over ten million
// rows against ten thousand, in graphs of the same size, painted into their backing store.

#include <QApplication>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "bench/support/Goals.h"
#include "ui/review/ReviewGraphs.h"

namespace {

using namespace tarnlog;

constexpr int kGraphs = 6;
constexpr int kCurves = 30;
constexpr double kLength = 10'000;  ///< seconds, whatever the rows
constexpr QSize kSize(1200, 900);

/// A slow wave, a saw tooth or a level that jumps, with noise of a fixed height: as many pixels whatever the
/// number of rows.
double signal(int curve, double part, std::int64_t row) {
  const double noise = static_cast<double>(row * 7919 % 13);
  if (curve % 3 == 0) return 50 + 40 * std::sin(part * 40 + curve) + noise;
  return noise + (curve % 3 == 1 ? std::fmod(part * 700, 70) : std::fmod(part * 50, 2) < 1 ? 20 : 85);
}

LookedAtRecord makeRecord(std::int64_t rows) {
  auto table = std::make_shared<RecordTable>();
  table->complete = true;
  TableGroup& group = table->recordings.emplace_back().groups.emplace_back();
  for (std::int64_t row = 0; row < rows; ++row)
    group.times.append(kLength * static_cast<double>(row) / static_cast<double>(rows));
  for (int curve = 0; curve < kCurves; ++curve) {
    TableColumn& column = group.columns.emplace_back();
    column.about.name = "Datum " + std::to_string(curve);
    column.about.unit = "V";
    for (std::int64_t row = 0; row < rows; ++row)
      column.numbers.append(signal(curve, static_cast<double>(row) / static_cast<double>(rows), row));
  }
  return {"bench", table, 0, 0};
}

/// Made once: it takes longer than what is measured.
const LookedAtRecord& record(std::int64_t rows) {
  static std::map<std::int64_t, LookedAtRecord> made;
  const auto found = made.find(rows);
  return found != made.end() ? found->second : made.emplace(rows, makeRecord(rows)).first->second;
}

std::vector<ReviewGraph> graphs() {
  std::vector<ReviewGraph> all(kGraphs);
  for (std::size_t curve = 0; curve < kCurves; ++curve)
    all[curve % kGraphs].curves.push_back({{0, 0, curve}, {}, reviewColour(curve / kGraphs)});
  return all;
}

void look(benchmark::State& state) {
  ReviewScene scene;
  scene.addRecord(record(state.range(0)));
  scene.setGraphs(graphs());
  ReviewGraphs window(scene);
  window.resize(kSize);
  window.show();
  QApplication::processEvents();
  int step = 0;
  for (auto _ : state) {
    const double part = 1 - 0.12 * (step % 8);
    const double from = (1 - part) * (step % 5) / 4;
    scene.show({from * kLength, (from + part) * kLength}, true);
    QEvent now(QEvent::UpdateRequest);
    QApplication::sendEvent(&window, &now);
    ++step;
  }
}

constexpr std::int64_t kFew = 10'000;
constexpr std::int64_t kMany = 10'000'000;
BENCHMARK(look)->Arg(kFew)->Arg(kMany)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  tarnlog::bench::Goals goals;
  goals.ratio("look_at_10000000_rows", "look/10000000", "look/10000", tarnlog::bench::atMost(1.5));
  return goals.run(argc, argv);
}
