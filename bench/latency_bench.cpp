// Does the recorder keep the link busy? Ten requests over a link of 2 ms: polling cycles in real time, with
// the run loop of the programs, against a loop that only sends and waits on the same link. And at the 20 ms
// of a car: with measurement file, JSON lines and syncs every second against without, with each answer
// published at a broker on this machine, and while a long text record is opened on another thread.

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "bench/support/BigRecord.h"
#include "bench/support/FileTarget.h"
#include "bench/support/Goals.h"
#include "bench/support/PreparedCar.h"
#include "host/link/SystemLinkClock.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/RunLoop.h"
#include "platform/time/SystemClock.h"
#include "publish/PublishSink.h"
#include "records/RecordLoading.h"
#include "samples/Measurement.h"
#include "tests/support/Broker.h"
#include "tests/support/TempFolder.h"

namespace {

using namespace tarnlog;
using Time = std::chrono::steady_clock;

constexpr std::size_t kRequests = 10;
constexpr int kLatency = 2;  // ms
constexpr int kLatencyOfACar = 20;
constexpr std::chrono::milliseconds kSpan{1000};

double perSecond(std::uint64_t cycles, Time::duration time) {
  return static_cast<double>(cycles) / std::chrono::duration<double>(time).count();
}

std::unique_ptr<host::OpenedVehicle> openCar(test::MemoryFileSystem& descriptions, host::LinkClock& clock,
                                             int latency) {
  descriptions.files["car.json"] = bench::carDescription(kRequests, 10, latency);
  return host::openVehicle("car.json", descriptions, {}, clock, {});
}

void sendAndWait(benchmark::State& state) {
  test::MemoryFileSystem descriptions;
  host::SystemLinkClock linkClock;
  const auto vehicle = openCar(descriptions, linkClock, kLatency);
  const ferrox3::Ecu& ecu = vehicle->session().ecu(0);
  double rate = 0;
  for (auto _ : state) {
    std::uint64_t cycles = 0;
    const auto start = Time::now();
    for (; Time::now() - start < kSpan; ++cycles)
      for (std::size_t r = 0; r < kRequests; ++r) ecu.request(r).send();
    rate = perSecond(cycles, Time::now() - start);
  }
  state.counters["cycles"] = rate;
}

enum class Beside { Nothing, Measuring, Publishing };

PublishSetup setupOf(const std::string& to) {
  PublishSetup setup;
  setup.terms.to = parseBrokerAddress(to);
  setup.terms.vehicle = "bench";
  setup.live = true;
  return setup;
}

void run(benchmark::State& state, int latency, Beside beside) {
  const test::TempFolder folder;
  test::MemoryFileSystem descriptions;
  host::SystemLinkClock linkClock;
  const auto vehicle = openCar(descriptions, linkClock, latency);
  SilentAcqScreen screen;
  SystemClock clock;
  RunLoop loop;
  const auto timer = loop.createTimer();
  SystemFileSystem files;
  files.setSyncInterval(std::chrono::seconds(beside == Beside::Nothing ? 0 : 1));
  bench::FileTarget target(files.create(folder / "samples"));
  JsonLinesSink json(target);
  Measurement measurement(
      {.files = files, .clock = clock, .locale = {}, .programVersion = "1", .whole = [beside] {
         return beside == Beside::Publishing;
       }});
  std::optional<test::Broker> broker;
  std::optional<Publisher> publisher;
  std::optional<PublishSink> published;
  std::vector<SampleSink*> sinks;
  if (beside != Beside::Nothing) sinks = measurement.sinks();
  if (beside == Beside::Measuring) sinks.push_back(&json);
  if (beside == Beside::Publishing) {
    if (!test::Broker::isInstalled()) return state.SkipWithError("mosquitto is not installed");
    broker.emplace(folder.path());
    publisher.emplace(setupOf(broker->address()));
    published.emplace(measurement.files(), *publisher);
    sinks.push_back(&*published);
  }
  TarnAcq acq(screen, {clock, *timer, files, {}, "", sinks});
  acq.setSession(&vehicle->session());
  acq.StartReadingData(bench::everything(kRequests, 10, folder.path()));
  double rate = 0;
  for (auto _ : state) {
    Time::time_point start;
    std::uint64_t before = 0;
    loop.setWakeHandler([&] {
      if (!acq.Recording()) {
        if (acq.hasRow() && !acq.startPending()) acq.ToggleRecording();
        return;
      }
      if (before == 0) {
        before = acq.cycles();
        start = Time::now();
      } else if (Time::now() - start >= kSpan) {
        rate = perSecond(acq.cycles() - before, Time::now() - start);
        loop.quit();
      }
    });
    loop.run();
  }
  state.counters["cycles"] = rate;
}

void record(benchmark::State& state) { run(state, kLatency, Beside::Nothing); }
void recordACar(benchmark::State& state) { run(state, kLatencyOfACar, Beside::Nothing); }
void measureACar(benchmark::State& state) { run(state, kLatencyOfACar, Beside::Measuring); }
void publishACar(benchmark::State& state) { run(state, kLatencyOfACar, Beside::Publishing); }

/// Opens it again and again.
void recordWhileOpening(benchmark::State& state) {
  static const bench::BigRecord record(100, 100000);
  std::jthread opening([](const std::stop_token& stop) {
    while (!stop.stop_requested()) {
      RecordLoading loading(record.path());
      while (loading.state() == RecordLoading::State::Reading && !stop.stop_requested()) {
        loading.newest();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
    }
  });
  run(state, kLatencyOfACar, Beside::Nothing);
}

BENCHMARK(sendAndWait)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(record)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(recordACar)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(measureACar)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(publishACar)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(recordWhileOpening)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  goals.ratio("cycles_of_what_the_link_allows", "record/iterations:1", "sendAndWait/iterations:1",
              tarnlog::bench::atLeast(0.9), "cycles");
  goals.ratio("polling_rate_while_measuring", "measureACar/iterations:1", "recordACar/iterations:1",
              tarnlog::bench::atLeast(0.97), "cycles");
  goals.ratio("polling_rate_while_publishing", "publishACar/iterations:1", "recordACar/iterations:1",
              tarnlog::bench::atLeast(0.97), "cycles");
  goals.ratio("polling_rate_while_opening", "recordWhileOpening/iterations:1", "recordACar/iterations:1",
              tarnlog::bench::atLeast(0.97), "cycles");
  return goals.run(argc, argv);
}
