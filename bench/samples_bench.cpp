// What does a polling cycle of 100 answers cost more when each answer is counted and written to a measurement
// file, and also as a JSON line?

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "bench/support/CountedAllocations.h"
#include "bench/support/FileTarget.h"
#include "bench/support/Goals.h"
#include "bench/support/PreparedCar.h"
#include "host/link/SystemLinkClock.h"
#include "host/service/HexText.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/SystemClock.h"
#include "samples/Measurement.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/TempFolder.h"

namespace {

using namespace tarnlog;

constexpr std::size_t kRequests = 100;
/// Cycles until all buffers are as large as they get.
constexpr int kWarmUp = 4000;

enum Listeners : unsigned { kNobody = 0, kMf4 = 1, kJson = 2 };
/// Answers that are prepared, so that the recorder alone is left, and those of a gateway on this machine.
enum class Car { Bare, Gateway };

/// Answers each request at once, as DoIP wants it: the connection is granted, requests are acknowledged.
void serveAsGateway(test::LoopbackConnection& tester) {
  std::vector<std::uint8_t> activation(15);
  tester.read(activation);
  tester.write(*host::bytesFromHex("02 FD 00 06 00 00 00 09 0E 00 00 01 10 00 00 00 00"));
  std::vector<std::uint8_t> request(15);
  std::vector<std::uint8_t> answers = *host::bytesFromHex(
      "02 FD 80 02 00 00 00 05 00 01 0E 00 00 "
      "02 FD 80 01 00 00 00 09 00 01 0E 00 62 00 00 00 00");
  while (tester.read(request)) {
    std::copy_n(request.begin() + 13, 2, answers.end() - 4);
    ++answers.back();
    tester.write(answers);
  }
}

std::unique_ptr<host::OpenedVehicle> openCar(Car car, std::size_t dataPerRequest, std::uint16_t gateway,
                                             test::MemoryFileSystem& files, host::LinkClock& clock) {
  files.files["car.json"] = bench::carDescription(kRequests, dataPerRequest, 0);
  if (car == Car::Bare)
    return host::openVehicle("car.json", files, {}, clock, {},
                             std::make_unique<bench::PreparedLink>(dataPerRequest));
  host::LinkOptions link;
  link.url = "doip://127.0.0.1:" + std::to_string(gateway) + "?bundle=0";  // an answer for each request
  return host::openVehicle("car.json", files, {}, clock, {}, link);
}

void cycle(benchmark::State& state, Car car, unsigned listeners, std::size_t dataPerRequest) {
  const test::TempFolder folder;
  test::MemoryFileSystem descriptions;
  host::SystemLinkClock linkClock;
  const test::LoopbackServer gateway(serveAsGateway);
  const auto vehicle = openCar(car, dataPerRequest, gateway.port(), descriptions, linkClock);
  SystemFileSystem files;
  SystemClock clock;
  bench::FileTarget target(files.create(folder / "samples"));
  JsonLinesSink json(target);
  Measurement measurement({.files = files, .clock = clock, .locale = {}, .programVersion = "1"});
  std::vector<SampleSink*> sinks;
  if ((listeners & kMf4) != 0) sinks = measurement.sinks();
  if ((listeners & kJson) != 0) sinks.push_back(&json);
  SilentAcqScreen screen;
  test::ManualTimer timer;
  TarnAcq acq(screen, {clock, timer, files, {}, "", sinks});
  acq.setSession(&vehicle->session());
  acq.StartReadingData(bench::everything(kRequests, dataPerRequest, folder.path()));
  while (!acq.hasRow()) timer.fire();
  acq.ToggleRecording();
  for (int i = 0; i < (car == Car::Gateway ? 100 : kWarmUp); ++i) timer.fire();
  if (!acq.Recording()) std::abort();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) timer.fire();
  state.counters["allocations"] = static_cast<double>(bench::allocationCount() - before);
}

void bare(benchmark::State& state) { cycle(state, Car::Bare, kNobody, 1); }
void bareMf4(benchmark::State& state) { cycle(state, Car::Bare, kMf4, 1); }
void bareBoth(benchmark::State& state) { cycle(state, Car::Bare, kMf4 | kJson, 1); }
void gateway(benchmark::State& state) { cycle(state, Car::Gateway, kNobody, 1); }
void gatewayMf4(benchmark::State& state) { cycle(state, Car::Gateway, kMf4, 1); }
void gatewayBoth(benchmark::State& state) { cycle(state, Car::Gateway, kMf4 | kJson, 1); }
void many(benchmark::State& state) { cycle(state, Car::Bare, kNobody, 10); }
void manyMf4(benchmark::State& state) { cycle(state, Car::Bare, kMf4, 10); }
void manyBoth(benchmark::State& state) { cycle(state, Car::Bare, kMf4 | kJson, 10); }

BENCHMARK(bare);
BENCHMARK(bareMf4);
BENCHMARK(bareBoth);
BENCHMARK(gateway);
BENCHMARK(gatewayMf4);
BENCHMARK(gatewayBoth);
BENCHMARK(many);
BENCHMARK(manyMf4);
BENCHMARK(manyBoth);

}  // namespace

int main(int argc, char** argv) {
  using tarnlog::bench::atMost;
  tarnlog::bench::Goals goals;
  goals.ratio("samples_mf4_cycle_time", "bareMf4", "bare", atMost(1.05));
  goals.ratio("samples_cycle_time", "bareBoth", "bare", atMost(1.1));
  goals.ratio("samples_mf4_gateway_cycle_time", "gatewayMf4", "gateway", atMost(1.05));
  goals.ratio("samples_gateway_cycle_time", "gatewayBoth", "gateway", atMost(1.1));
  goals.ratio("samples_mf4_cycle_time_many_data", "manyMf4", "many", atMost(1.05));
  goals.ratio("samples_cycle_time_many_data", "manyBoth", "many", atMost(1.1));
  goals.absolute("samples_allocations", "bareBoth", atMost(0), "allocations");
  return goals.run(argc, argv);
}
