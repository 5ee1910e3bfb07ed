// Does the live display cost the recording anything? A screen full of values refreshed and painted against
// the time between two pictures, and the polling rate of the example vehicles with the view shown against
// that without one.

#include <QApplication>
#include <QScreen>
#include <QTabBar>
#include <QTimer>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "acquisition/SilentAcqScreen.h"
#include "apps/common/LoadedConfiguration.h"
#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/RunLoop.h"
#include "platform/time/SystemClock.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/live/LiveDisplay.h"
#include "ui/acquisition/AcqView.h"
#include "ui/common/QtTimer.h"

namespace {

using namespace tarnlog;
using Time = std::chrono::steady_clock;

constexpr int kGroups = 20;  ///< each a graph, a bar and a digital value
constexpr int kCurvesPerGraph = 3;
constexpr int kAllBlocks = 1800;  ///< pixels that they need above one another
// What is seen of them: in the window as it opens, on a full HD screen, on a very large one.
constexpr QSize kOpened(880, 460);
constexpr QSize kFullHD(1900, 930);
constexpr QSize kAll(1900, kAllBlocks);

double processorSeconds() {
  timespec used{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

/// Sixty curves, twenty bars and twenty digital values, all of them changing at each refresh, in a window
/// that shows as many as its height allows.
class FullScreen {
 public:
  explicit FullScreen(QSize seen = kOpened) : display_(QSize(seen.width(), kAllBlocks)) {
    for (int group = 0; group < kGroups; ++group) {
      display_.add(newDatum(), oTarnScope::kGraph);
      const auto graph = static_cast<std::int32_t>(data_.size());
      for (int curve = 1; curve < kCurvesPerGraph; ++curve) display_.addCurve(newDatum(), graph);
      display_.add(newDatum(), oTarnScope::kBarGraph);
      display_.add(newDatum(), oTarnScope::kDigital);
    }
    settings_.write("GraphMegabytes", "16");
    display_.widget.setSettings(&settings_);
    display_.buildLive();
    display_.window.resize(seen);
    for (int i = 0; i < 700; ++i) {
      change();
      refresh();
    }
    QApplication::processEvents();
  }

  void change() {
    ++step_;
    for (std::size_t i = 0; i < data_.size(); ++i) {
      const double phase = static_cast<double>(i) + step_ / 25.0;
      data_[i]->setValue(std::round((50 + 45 * std::sin(phase)) * 100) / 100);
    }
  }
  void refresh() { display_.refresh(); }
  /// Until what is kept for a look back fills its memory.
  void fillMemory() {
    for (int i = 0; i < 25'000; ++i) {
      change();
      refresh();
    }
  }
  QWidget& window() { return display_.window; }
  template <class Kind>
  Kind* find(const char* name) {
    return &display_.find<Kind>(name);
  }

 private:
  test::ScriptedData& newDatum() {
    data_.push_back(
        &display_.request.addData("Signal " + std::to_string(data_.size()), ferrox3::kDouble, "km/h"));
    return *data_.back();
  }

  MemorySettingsStore settings_;
  test::LiveDisplay display_;
  std::vector<test::ScriptedData*> data_;
  double step_ = 0;
};

void refresh(benchmark::State& state) {
  FullScreen screen;
  screen.fillMemory();
  std::size_t allocations = 0;
  for (auto _ : state) {
    state.PauseTiming();
    screen.change();
    state.ResumeTiming();
    const std::size_t before = bench::allocationCount();
    screen.refresh();
    allocations += bench::allocationCount() - before;
  }
  state.counters["allocations"] = static_cast<double>(allocations) / static_cast<double>(state.iterations());
}

/// Refreshed thirty times a second for two seconds, painted as the screen asks: the share of one core.
void thirtyPictures(benchmark::State& state) {
  FullScreen screen(QSize(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
  QTimer poll;
  poll.setTimerType(Qt::PreciseTimer);
  QObject::connect(&poll, &QTimer::timeout, [&] {
    screen.change();
    screen.refresh();
  });
  for (auto _ : state) {
    poll.start(1000 / 30);
    QTimer::singleShot(2000, &QCoreApplication::quit);
    const double before = processorSeconds();
    const auto start = Time::now();
    QApplication::exec();
    state.counters["share"] =
        (processorSeconds() - before) / std::chrono::duration<double>(Time::now() - start).count();
  }
}

class CountedPaints : public QObject {
 public:
  explicit CountedPaints(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

/// Refreshed as often as the machine can for a second.
void pictures(benchmark::State& state) {
  FullScreen screen;
  CountedPaints paints(*screen.find<CWGraph>("GT1"));
  for (auto _ : state) {
    paints.count = 0;
    const auto start = Time::now();
    while (Time::now() - start < std::chrono::seconds(1)) {
      screen.change();
      screen.refresh();
      QApplication::processEvents();
    }
    state.counters["perScreenPicture"] = paints.count / screen.window().screen()->refreshRate();
  }
}

const char* const kVehicles[] = {"road-car", "kwp2000-car"};
constexpr std::chrono::milliseconds kSpan{2000};

/// An example vehicle and its configuration, recording nowhere near the user's files.
struct Example {
  Example(const std::string& name, std::function<void()> whileWaiting)
      : vehicle(host::openVehicle(kFolder + name + ".vehicle.json", files, {}, linkClock,
                                  std::move(whileWaiting))),
        configuration(loadToRecord(files, kFolder + name + ".xml", vehicle->session())) {
    configuration.parameters->fileFolder = folder.path();
  }

  inline static const std::string kFolder = TARNLOG_SOURCE_DIR "/examples/";
  test::TempFolder folder;
  SystemFileSystem files;
  SystemClock clock;
  host::SystemLinkClock linkClock;
  std::unique_ptr<host::OpenedVehicle> vehicle;
  LoadedConfiguration configuration;
};

/// Polling cycles per second, looked at now and then.
class Rate {
 public:
  /// True when enough has been seen.
  bool look(const TarnAcq& acq) {
    if (first_ == 0) {
      first_ = acq.cycles();
      start_ = Time::now();
      return false;
    }
    const auto passed = Time::now() - start_;
    if (passed < kSpan) return false;
    perSecond = static_cast<double>(acq.cycles() - first_) / std::chrono::duration<double>(passed).count();
    return true;
  }
  double perSecond = 0;

 private:
  std::uint64_t first_ = 0;
  Time::time_point start_;
};

void headless(benchmark::State& state) {
  Example example(kVehicles[state.range(0)], {});
  SilentAcqScreen screen;
  RunLoop loop;
  const auto timer = loop.createTimer();
  TarnAcq acq(screen, {example.clock, *timer, example.files, {}, ""});
  acq.setSession(&example.vehicle->session());
  acq.StartReadingData(example.configuration.parameters);
  Rate rate;
  loop.setWakeHandler([&] {
    if (rate.look(acq)) loop.quit();
  });
  for (auto _ : state) loop.run();
  state.counters["cycles"] = rate.perSecond;
}

void shown(benchmark::State& state) {
  Example example(kVehicles[state.range(0)], [] { QCoreApplication::processEvents(); });
  QtTimer ticks;
  AcqView view({example.clock, ticks, example.files, {}, ""});
  view.resize(1200, 900);
  view.show();
  view.acq().setSession(&example.vehicle->session());
  view.acq().StartReadingData(example.configuration.parameters);
  view.findChild<QTabBar*>()->setCurrentIndex(1);
  Rate rate;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    if (rate.look(view.acq())) QCoreApplication::quit();
  });
  look.start(20);
  const double before = processorSeconds();
  const auto start = Time::now();
  for (auto _ : state) QApplication::exec();
  state.counters["cycles"] = rate.perSecond;
  state.counters["share"] =
      (processorSeconds() - before) / std::chrono::duration<double>(Time::now() - start).count();
}

BENCHMARK(refresh)->Unit(benchmark::kMicrosecond);
BENCHMARK(thirtyPictures)
    ->Args({kOpened.width(), kOpened.height()})
    ->Args({kFullHD.width(), kFullHD.height()})
    ->Args({kAll.width(), kAll.height()})
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(pictures)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(headless)->DenseRange(0, 1)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(shown)->DenseRange(0, 1)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  using namespace tarnlog::bench;
  Goals goals;
  goals.absolute("refresh_allocations", "refresh", atMost(0), "allocations");
  for (const std::string seen : {"880/460", "1900/930"})
    goals.absolute("display_share_of_core_" + seen, "thirtyPictures/" + seen + "/iterations:1/repeats:3",
                   atMost(0.05), "share");
  goals.absolute("pictures_per_screen_picture", "pictures/iterations:1", atMost(1), "perScreenPicture");
  for (const std::string vehicle : {"0", "1"})
    goals.ratio("polling_rate_shown_" + vehicle, "shown/" + vehicle + "/iterations:1/repeats:3",
                "headless/" + vehicle + "/iterations:1/repeats:3", atLeast(0.95), "cycles");
  return goals.run(argc, argv);
}
