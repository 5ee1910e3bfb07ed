// Are ECUs asked side by side as fast as the slowest of them lets? Polling cycles of a host's session over
// diagnostics over IP and over CAN frames, with peers that answer each ECU after a latency of its own,
// against the same link that asks one ECU after the other, and against a loop that asks the slowest ECU
// alone. And what an answer costs of the processor's time.

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "host/link/PatientLink.h"
#include "host/link/SystemLinkClock.h"
#include "host/link/can/IsoTpLink.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/stream/TcpStream.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/service/HexText.h"
#include "host/vehicle/session/VehicleSession.h"
#include "host/vehicle/simulation/VehicleSimulator.h"
#include "tests/support/LoopbackServer.h"

namespace {

using namespace tarnlog;
using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;
using Time = std::chrono::steady_clock;

constexpr std::size_t kEcus = 5;
constexpr std::size_t kRequests = 4;
constexpr auto kSpan = 1000ms;

using Latencies = std::array<std::chrono::milliseconds, kEcus>;
constexpr Latencies kEqual{20ms, 20ms, 20ms, 20ms, 20ms};
constexpr Latencies kMixed{5ms, 10ms, 20ms, 40ms, 80ms};

/// With four requests each, answered at once in simulation.
host::VehicleDescription fiveEcus() {
  std::string text = R"({"name":"car","ecus":[)";
  for (std::size_t e = 0; e < kEcus; ++e) {
    text += (e > 0 ? "," : "") + std::string(R"({"name":"E)") + std::to_string(e) + R"(","address":)" +
            std::to_string(0x7E0 + e) + R"(,"protocol":"UDS","requests":[)";
    for (std::size_t r = 0; r < kRequests; ++r)
      text += (r > 0 ? "," : "") + std::string(R"({"name":"R)") + std::to_string(r) +
              R"(","frame":"22 F0 0)" + std::to_string(r) + R"(","data":[{"name":"V","byte":3,"bytes":2}]})";
    text += "]}";
  }
  return host::parseVehicleDescription(text + R"(],"simulation":{"latency":0}})", "car", {});
}

/// Answers on their way, each handed on when its time has come.
class Delayed {
 public:
  explicit Delayed(std::function<void(const Bytes&)> deliver) : deliver_(std::move(deliver)) {}
  void put(Time::time_point due, Bytes bytes) {
    const std::lock_guard lock(mutex_);
    waiting_.emplace(due, std::move(bytes));
    changed_.notify_one();
  }

 private:
  void run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (!stop.stop_requested()) {
      if (waiting_.empty()) {
        changed_.wait_for(lock, 50ms);
      } else if (const auto due = waiting_.begin()->first; due > Time::now()) {
        changed_.wait_until(lock, due);
      } else {
        const Bytes bytes = std::move(waiting_.begin()->second);
        waiting_.erase(waiting_.begin());
        lock.unlock();
        deliver_(bytes);
        lock.lock();
      }
    }
  }

  std::function<void(const Bytes&)> deliver_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::multimap<Time::time_point, Bytes> waiting_;
  std::jthread thread_{[this](const std::stop_token& stop) { run(stop); }};
};

Bytes responseTo(std::span<const std::uint8_t> request) { return {0x62, request[1], request[2], 0x12, 0x34}; }

/// A gateway on loopback: acknowledges at once, and answers for each ECU after its latency.
test::LoopbackServer gateway(const Latencies& latencies) {
  return test::LoopbackServer([latencies](test::LoopbackConnection& tester) {
    const auto message = [](std::uint8_t type, const Bytes& payload) {
      Bytes bytes{0x02, 0xFD, static_cast<std::uint8_t>(type == 6 ? 0x00 : 0x80), type, 0,
                  0,    0,    static_cast<std::uint8_t>(payload.size())};
      bytes.insert(bytes.end(), payload.begin(), payload.end());
      return bytes;
    };
    Delayed delayed([&](const Bytes& bytes) { tester.write(bytes); });
    Bytes activation(15);
    tester.read(activation);
    tester.write(message(6, *host::bytesFromHex("0E 00 10 00 10 00 00 00 00")));
    for (Bytes head(8); tester.read(head);) {
      Bytes payload(head[7]);
      tester.read(payload);
      const std::size_t ecu = payload[3] - 0xE0U;
      Bytes acknowledged{payload[2], payload[3], 0x0E, 0x00, 0x00};
      Bytes answer{payload[2], payload[3], 0x0E, 0x00};
      const Bytes response = responseTo(std::span(payload).subspan(4));
      answer.insert(answer.end(), response.begin(), response.end());
      const auto now = Time::now();
      delayed.put(now, message(2, acknowledged));
      delayed.put(now + latencies[ecu], message(1, answer));
    }
  });
}

/// A CAN bus in this process, frame by frame.
class BusPort : public host::CanPort {
 public:
  BusPort(const Latencies& latencies, host::LinkClock& clock) : latencies_(latencies), clock_(clock) {}
  void open() override {}
  void close() override {}
  void setIdleHook(std::function<void()> /*hook*/) override {}
  void listenTo(std::span<const std::uint32_t> /*identifiers*/) override {}
  void send(std::uint32_t identifier, const host::CanPayload& payload) override {
    const Bytes response = responseTo(payload.bytes().subspan(1));
    Bytes frame{static_cast<std::uint8_t>(identifier - 0x7E0), static_cast<std::uint8_t>(response.size())};
    frame.insert(frame.end(), response.begin(), response.end());
    delayed_.put(Time::now() + latencies_[identifier - 0x7E0], frame);
  }
  bool receive(std::uint32_t& identifier, host::CanPayload& payload, host::Moment deadline) override {
    std::unique_lock lock(mutex_);
    const auto wait = std::max(deadline - clock_.now(), host::Moment(0));
    if (!came_.wait_for(lock, wait, [&] { return !frames_.empty(); })) return false;
    identifier = 0x7E8U + frames_.front()[0];
    payload = host::CanPayload(std::span<const std::uint8_t>(frames_.front()).subspan(1));
    frames_.pop_front();
    return true;
  }

 private:
  Latencies latencies_;
  host::LinkClock& clock_;
  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<Bytes> frames_;
  Delayed delayed_{[this](const Bytes& frame) {
    const std::lock_guard lock(mutex_);
    frames_.push_back(frame);
    came_.notify_one();
  }};
};

/// A session over one of the links, and its poll set with all requests.
class Polled {
 public:
  Polled(const host::VehicleDescription& car, host::Link& link, host::LinkClock& clock)
      : session_(car, link, clock, {}) {
    for (std::size_t e = 0; e < session_.ecuCount(); ++e)
      for (std::size_t r = 0; r < session_.ecu(e).requestCount(); ++r)
        list_->add(session_.ecu(e).request(r).data(0));
    set_ = list_->pollSet();
    set_->protocol().initialiseAll();
  }
  void cycle() {
    for (std::size_t i = 0; i < set_->requestCount(); ++i) set_->request(i).send();
  }
  double cyclesPerSecond() {
    for (int i = 0; i < 2; ++i) cycle();
    int cycles = 0;
    const auto start = Time::now();
    for (; Time::now() - start < kSpan; ++cycles) cycle();
    return cycles / std::chrono::duration<double>(Time::now() - start).count();
  }

 private:
  host::VehicleSession session_;
  std::unique_ptr<ferrox3::AcquisitionList> list_ = session_.createAcquisitionList();
  std::unique_ptr<ferrox3::PollSet> set_;
};

double overDoip(const Latencies& latencies, bool sideBySide) {
  const test::LoopbackServer server = gateway(latencies);
  host::SystemLinkClock clock;
  host::DoipSettings settings;
  settings.host = "127.0.0.1";
  settings.port = server.port();
  settings.sideBySide = sideBySide;
  const auto connect = [&](const std::string& name, std::uint16_t port) {
    return std::make_unique<host::TcpStream>(name, port, clock);
  };
  host::PatientLink link(std::make_unique<host::DoipLink>(settings, connect, clock), clock, false);
  const auto car = fiveEcus();
  return Polled(car, link, clock).cyclesPerSecond();
}

double overCan(const Latencies& latencies, bool sideBySide) {
  host::SystemLinkClock clock;
  const auto connect = [&] { return std::make_unique<BusPort>(latencies, clock); };
  host::PatientLink link(std::make_unique<host::IsoTpLink>(std::nullopt, connect, clock, sideBySide), clock,
                         false);
  const auto car = fiveEcus();
  return Polled(car, link, clock).cyclesPerSecond();
}

/// What the slowest ECU allows.
double limit(const Latencies& latencies) {
  const auto slowest = *std::ranges::max_element(latencies);
  return 1.0 / (std::chrono::duration<double>(slowest).count() * kRequests);
}

void measure(benchmark::State& state, double (*cycles)(const Latencies&, bool), const Latencies& latencies) {
  double together = 0;
  double apart = 0;
  for (auto _ : state) {
    together = cycles(latencies, true);
    apart = cycles(latencies, false);
  }
  state.counters["of_apart"] = together / apart;
  state.counters["of_slowest"] = together / limit(latencies);
}

void doip(benchmark::State& state) { measure(state, overDoip, kEqual); }
void doipMixed(benchmark::State& state) { measure(state, overDoip, kMixed); }
void isotp(benchmark::State& state) { measure(state, overCan, kEqual); }
void isotpMixed(benchmark::State& state) { measure(state, overCan, kMixed); }

/// Answers at once, so that only our own work counts.
void answers(benchmark::State& state, bool sideBySide) {
  host::SystemLinkClock clock;
  const auto car = fiveEcus();
  host::VehicleSimulator simulator(car);
  host::SimulatedLink link(clock, simulator, {.sideBySide = sideBySide, .bundles = false});
  Polled polled(car, link, clock);
  for (int i = 0; i < 300; ++i) polled.cycle();
  const std::size_t before = bench::allocationCount();
  std::size_t cycles = 0;
  for (auto _ : state) {
    polled.cycle();
    ++cycles;
  }
  state.counters["allocations"] =
      static_cast<double>(bench::allocationCount() - before) / static_cast<double>(cycles);
}
void answersTogether(benchmark::State& state) { answers(state, true); }
void answersApart(benchmark::State& state) { answers(state, false); }

/// One ECU with 20 identifiers at 20 ms, simulated; `interval` of every second one in milliseconds.
double ofOneEcu(bool bundles, std::size_t requests, int interval) {
  std::string text = R"({"name":"car","ecus":[{"name":"E","address":1,"protocol":"UDS","requests":[)";
  for (std::size_t r = 0; r < requests; ++r)
    text += (r > 0 ? "," : "") + std::string(R"({"name":"R)") + std::to_string(r) + R"(","frame":"22 F0 )" +
            std::to_string(10 + r) + R"(","interval":)" + std::to_string(r % 2 == 1 ? interval : 0) +
            R"(,"data":[{"name":"V","byte":3,"bytes":2}]})";
  text += R"(]}],"simulation":{"latency":20}})";
  host::SystemLinkClock clock;
  const auto car = host::parseVehicleDescription(text, "car", {});
  host::VehicleSimulator simulator(car);
  host::SimulatedLink link(clock, simulator, {.sideBySide = true, .bundles = bundles});
  Polled polled(car, link, clock);
  return polled.cyclesPerSecond();
}

void identifiers(benchmark::State& state) {
  for (auto _ : state) state.counters["of_single"] = ofOneEcu(true, 20, 0) / ofOneEcu(false, 20, 0);
}
/// Of 10 requests, every second one comes so rarely that it should cost nothing.
void interval(benchmark::State& state) {
  for (auto _ : state) state.counters["of_without"] = ofOneEcu(false, 10, 3'600'000) / ofOneEcu(false, 5, 0);
}

BENCHMARK(identifiers)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(interval)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(doip)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(doipMixed)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(isotp)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(isotpMixed)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(answersTogether);
BENCHMARK(answersApart);

}  // namespace

int main(int argc, char** argv) {
  using bench::atLeast;
  bench::Goals goals;
  for (const std::string link : {"doip", "isotp"}) {
    const std::string equal = link + "/iterations:1/repeats:3";
    goals.absolute(link + "_side_by_side", equal, atLeast(4.5), "of_apart");
    goals.absolute(link + "_of_slowest_ecu", equal, atLeast(0.95), "of_slowest");
    goals.absolute(link + "_of_slowest_of_five", link + "Mixed/iterations:1/repeats:3", atLeast(0.95),
                   "of_slowest");
  }
  goals.absolute("samples_of_20_identifiers", "identifiers/iterations:1/repeats:3", atLeast(5), "of_single");
  goals.absolute("cycles_with_interval", "interval/iterations:1/repeats:3", atLeast(0.97), "of_without");
  goals.ratio("answer_side_by_side", "answersTogether", "answersApart", bench::atMost(1.2));
  goals.absolute("allocations_side_by_side", "answersTogether", bench::atMost(0.01), "allocations");
  return goals.run(argc, argv);
}
