// What does a polling cycle of 100 answers cost more when each answer is written as a JSON line and counted?

#include <cstdlib>
#include <memory>
#include <vector>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "bench/support/PreparedCar.h"
#include "host/link/SystemLinkClock.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/SystemClock.h"
#include "samples/JsonLinesSink.h"
#include "samples/QualityCounter.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/TempFolder.h"

namespace {

using namespace tarnlog;

constexpr std::size_t kRequests = 100;

struct FileTarget : LineTarget {
  explicit FileTarget(std::unique_ptr<FileStream> stream) : file(std::move(stream)) {}
  bool take(std::string_view lines) override {
    file->write(lines);
    return true;
  }
  std::unique_ptr<FileStream> file;
};

void cycle(benchmark::State& state, bool listened, std::size_t dataPerRequest) {
  const test::TempFolder folder;
  test::MemoryFileSystem descriptions;
  descriptions.files["car.json"] = bench::carDescription(kRequests, dataPerRequest, 0);
  host::SystemLinkClock linkClock;
  const auto vehicle = host::openVehicle("car.json", descriptions, {}, linkClock, {},
                                         std::make_unique<bench::PreparedLink>(dataPerRequest));
  SystemFileSystem files;
  FileTarget target(files.create(folder / "samples"));
  JsonLinesSink json(target);
  QualityCounter quality;
  std::vector<SampleSink*> sinks;
  if (listened) sinks = {&json, &quality};
  SilentAcqScreen screen;
  SystemClock clock;
  test::ManualTimer timer;
  TarnAcq acq(screen, {clock, timer, files, {}, "", sinks});
  acq.setSession(&vehicle->session());
  acq.StartReadingData(bench::everything(kRequests, dataPerRequest, folder.path()));
  while (!acq.hasRow()) timer.fire();
  acq.ToggleRecording();
  for (int i = 0; i < 50; ++i) timer.fire();
  if (!acq.Recording()) std::abort();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) timer.fire();
  state.counters["allocations"] = static_cast<double>(bench::allocationCount() - before);
}

void alone(benchmark::State& state) { cycle(state, false, 1); }
void listenedTo(benchmark::State& state) { cycle(state, true, 1); }
void manyAlone(benchmark::State& state) { cycle(state, false, 10); }
void manyListenedTo(benchmark::State& state) { cycle(state, true, 10); }

BENCHMARK(alone);
BENCHMARK(listenedTo);
BENCHMARK(manyAlone);
BENCHMARK(manyListenedTo);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  goals.ratio("samples_cycle_time", "listenedTo", "alone", tarnlog::bench::atMost(1.1));
  goals.ratio("samples_cycle_time_many_data", "manyListenedTo", "manyAlone", tarnlog::bench::atMost(1.1));
  goals.absolute("samples_allocations", "listenedTo", tarnlog::bench::atMost(0), "allocations");
  return goals.run(argc, argv);
}
