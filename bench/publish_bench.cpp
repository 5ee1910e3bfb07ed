// How fast is a measurement file published at a broker on this machine, against a loop that only sends as
// many messages of that length and counts their acknowledgements? And what does the publisher keep in memory
// while there is no broker?

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/support/Goals.h"
#include "tests/publish/PublishRig.h"

namespace {

using namespace tarnlog;

constexpr int kCycles = 25'000;  // of two answers
constexpr int kUnderWay = 1000;

double residentMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmRSS:")) return std::strtod(line.c_str() + 6, nullptr) / 1024;
  return 0;
}

/// Other processes and threads work, too: what counts is how long it takes.
class Span {
 public:
  explicit Span(benchmark::State& state) : state_(state) {}
  Span(const Span&) = delete;
  Span& operator=(const Span&) = delete;
  ~Span() {
    state_.counters["seconds"] =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begun_).count();
  }

 private:
  benchmark::State& state_;
  std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
};

/// A file of so many answers; its path.
const std::string& measurement() {
  static const test::TempFolder folder;
  static const std::string path = [] {
    test::PublishRig rig(folder.path(), test::quickSetup("mqtt://127.0.0.1:1/none"));
    rig.pedal();
    rig.start();
    rig.cycles(kCycles);
    rig.stop();
    return rig.path_;
  }();
  return path;
}

void publishFile(benchmark::State& state) {
  if (!test::Broker::isInstalled()) return state.SkipWithError("mosquitto is not installed");
  const std::string& path = measurement();
  const test::TempFolder folder;
  const test::Broker broker(folder.path());
  for (auto _ : state) {
    PublishSetup setup = test::quickSetup(broker.address());
    setup.live = false;
    setup.terms.again = true;
    const Span span(state);
    Publisher publisher(setup);
    publisher.add(path);
    publisher.end(std::chrono::minutes(5));
    if (!test::becomes([&] { return publisher.isOver(); }) || !publisher.isWhole())
      state.SkipWithError("not whole");
  }
}

void sendBare(benchmark::State& state) {
  if (!test::Broker::isInstalled()) return state.SkipWithError("mosquitto is not installed");
  const test::TempFolder folder;
  const test::Broker broker(folder.path());
  const std::string topic = "fleet/Car/Engine/Status";
  const std::string payload(110, 'x');
  for (auto _ : state) {
    const Span span(state);
    int acknowledged = 0;
    mosquitto* const client = mosquitto_new(nullptr, true, &acknowledged);
    mosquitto_int_option(client, MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
    mosquitto_int_option(client, MOSQ_OPT_SEND_MAXIMUM, 65535);
    mosquitto_int_option(client, MOSQ_OPT_TCP_NODELAY, 1);
    mosquitto_publish_callback_set(client, [](mosquitto*, void* count, int) { ++*static_cast<int*>(count); });
    mosquitto_connect(client, "127.0.0.1", broker.port(), 30);
    for (int sent = 0; acknowledged < 2 * kCycles;) {
      for (; sent < 2 * kCycles && sent - acknowledged < kUnderWay; ++sent)
        mosquitto_publish(client, nullptr, topic.c_str(), static_cast<int>(payload.size()), payload.data(), 1,
                          false);
      mosquitto_loop(client, 100, 1);
    }
    mosquitto_destroy(client);
  }
}

/// By how much memory grows while so much is recorded: in a process of its own, with new memory.
double growth(bool publishes) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) std::abort();
  const pid_t child = ::fork();
  if (child == 0) {
    const test::TempFolder folder;
    test::PublishRig rig(folder.path(), test::quickSetup("mqtt://127.0.0.1:1/none"));
    if (!publishes) rig.finish(std::chrono::milliseconds(0));
    rig.pedal();
    rig.start();
    rig.cycles(1000);
    const double before = residentMegabytes();
    rig.cycles(10 * kCycles);
    const double grown = residentMegabytes() - before;
    std::filesystem::remove_all(folder.path());
    ::_exit(::write(ends[1], &grown, sizeof grown) == sizeof grown ? 0 : 1);
  }
  double grown = 0;
  if (::read(ends[0], &grown, sizeof grown) != sizeof grown) std::abort();
  ::waitpid(child, nullptr, 0);
  for (const int end : ends) ::close(end);
  return grown;
}

/// Half a million answers that nobody takes, against the same recorder without a publisher.
void recordWithoutBroker(benchmark::State& state) {
  for (auto _ : state) state.counters["megabytes"] = growth(true) - growth(false);
}

BENCHMARK(publishFile)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(sendBare)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(recordWithoutBroker)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  goals.ratio("publish_time", "publishFile/iterations:1", "sendBare/iterations:1",
              tarnlog::bench::atMost(1.5), "seconds");
  goals.absolute("publish_memory_without_broker", "recordWithoutBroker/iterations:1",
                 tarnlog::bench::atMost(8), "megabytes");
  return goals.run(argc, argv);
}
