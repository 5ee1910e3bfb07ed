#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <poll.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "host/link/SystemLinkClock.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/session/VehicleSession.h"
#include "host/vehicle/simulation/VehicleSimulator.h"
#include "tests/support/ManualLinkClock.h"

/// What does polling a described vehicle cost beside the vehicle's own time?
namespace {

using namespace tarnlog;
using namespace tarnlog::host;

/// A vehicle of one ECU; one number of each request is driven by a signal.
std::string descriptionText(int requests, int dataPerRequest, int latency) {
  std::string ecu;
  std::string simulated;
  for (int r = 0; r < requests; ++r) {
    std::string data;
    for (int d = 0; d < dataPerRequest; ++d)
      data +=
          fmt::format(R"({}{{"name":"D{}","byte":{},"bytes":2,"factor":0.25,"unit":"V","min":0,"max":100}})",
                      d > 0 ? "," : "", d, 3 + d % 4000);
    const char* const comma = r > 0 ? "," : "";
    ecu += fmt::format(R"({}{{"name":"R{}","frame":"22 {:04X}","data":[{}]}})", comma, r, r, data);
    simulated += fmt::format(
        R"({}{{"ecu":"E","request":"R{}","signals":{{"D0":{{"kind":"ramp","from":0,"to":16000,"period":0.1}}}}}})",
        comma, r);
  }
  return fmt::format(R"({{"name":"v","ecus":[{{"name":"E","address":1,"protocol":"UDS","requests":[{}]}}],)"
                     R"("simulation":{{"latency":{},"requests":[{}]}}}})",
                     ecu, latency, simulated);
}

VehicleDescription describe(int requests, int dataPerRequest, int latency) {
  return parseVehicleDescription(descriptionText(requests, dataPerRequest, latency), "bench.json",
                                 [](const std::string&) { return std::string(); });
}

/// A described vehicle over its simulation.
struct Polled {
  Polled(const VehicleDescription& vehicle, LinkClock& clock)
      : simulator(vehicle), link(clock, simulator), session(vehicle, link, clock, {}) {}

  void cycle() {
    ferrox3::Ecu& ecu = session.ecu(0);
    for (std::size_t i = 0; i < ecu.requestCount(); ++i) ecu.request(i).send();
  }

  VehicleSimulator simulator;
  SimulatedLink link;
  VehicleSession session;
};

/// 1000 data in 100 requests, the link's own time left out.
void cycle(benchmark::State& state) {
  const VehicleDescription vehicle = describe(100, 10, 1);
  test::ManualLinkClock clock;
  Polled polled(vehicle, clock);
  // Buffers change hands between link and requests: the second cycle makes the last one.
  polled.cycle();
  polled.cycle();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) polled.cycle();
  state.counters["allocations"] = static_cast<double>(bench::allocationCount() - before);
}
BENCHMARK(cycle);

/// The same answers made by the simulation alone.
void answersOnly(benchmark::State& state) {
  const VehicleDescription vehicle = describe(100, 10, 1);
  VehicleSimulator simulator(vehicle);
  SimulatedAnswers answers;
  const LinkTarget target{1, "UDS"};
  std::chrono::microseconds now{};
  for (auto _ : state)
    for (const RequestDescription& request : vehicle.ecus[0].requests) {
      answers.clear();
      simulator.answer(target, request.frame, now += std::chrono::milliseconds(1), answers);
      benchmark::DoNotOptimize(answers[0].bytes.data());
    }
}
BENCHMARK(answersOnly);

/// Cycles a second.
template <class Cycle>
void countCycles(benchmark::State& state, Cycle cycle) {
  SystemLinkClock clock;
  const Moment start = clock.now();
  for (auto _ : state) cycle();
  const std::chrono::duration<double> taken = clock.now() - start;
  state.counters["rate"] = static_cast<double>(state.iterations()) / taken.count();
}

/// Cycles of 10 requests of 2 ms against the system's clock.
void pollingRate(benchmark::State& state) {
  const VehicleDescription vehicle = describe(10, 10, 2);
  SystemLinkClock clock;
  Polled polled(vehicle, clock);
  polled.cycle();
  countCycles(state, [&] { polled.cycle(); });
}
BENCHMARK(pollingRate)->UseRealTime()->Iterations(50);

/// The floor: a program that only sleeps 2 ms ten times. How late the system wakes it, no program decides.
void sleepingRate(benchmark::State& state) {
  countCycles(state, [] {
    for (int i = 0; i < 10; ++i) {
      const timespec wait{0, 2'000'000};
      ::ppoll(nullptr, 0, &wait, nullptr);
    }
  });
}
BENCHMARK(sleepingRate)->UseRealTime()->Iterations(50);

void load(benchmark::State& state) {
  const std::string text = descriptionText(100, static_cast<int>(state.range(0)) / 100, 5);
  for (auto _ : state) {
    const VehicleDescription vehicle =
        parseVehicleDescription(text, "bench.json", [](const std::string&) { return std::string(); });
    benchmark::DoNotOptimize(vehicle.ecus.data());
  }
}
BENCHMARK(load)->Arg(20000)->Arg(200000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  using tarnlog::bench::atLeast;
  using tarnlog::bench::atMost;
  tarnlog::bench::Goals goals;
  goals.absolute("cycle_of_1000_data_ns", "cycle", atMost(200000));
  goals.ratio("cycle_beside_simulation", "cycle", "answersOnly", atMost(4));
  goals.absolute("cycle_allocations", "cycle", atMost(0), "allocations");
  goals.ratio("polling_rate_of_a_sleeping_loop", "pollingRate/iterations:50/real_time",
              "sleepingRate/iterations:50/real_time", atLeast(0.97), "rate");
  goals.absolute("load_200000_data_ns", "load/200000", atMost(3e9));
  goals.ratio("load_in_proportion", "load/200000", "load/20000", atMost(14));
  return goals.run(argc, argv);
}
