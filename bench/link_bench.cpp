// An ELM327 adapter over TCP on the loopback interface, against a loop that only sends and waits on the same
// kind of socket: with an adapter that answers at once, and with one that takes the 20 ms of a real one.

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>

#include "bench/support/Goals.h"
#include "bench/support/Loopback.h"
#include "host/link/SystemLinkClock.h"
#include "host/link/elm/Elm327Link.h"
#include "host/link/stream/TcpStream.h"
#include "tests/support/Asking.h"
#include "tests/support/LoopbackServer.h"

namespace {

using namespace tarnlog;

constexpr std::string_view kRequest = "010C1\r";

std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string_view answerTo(std::string_view line) {
  if (line == "ATZ") return "\r\rELM327 v1.5\r\r>";
  if (line == "ATDPN") return "A6\r\r>";
  if (line.starts_with("AT")) return "OK\r\r>";
  return line.starts_with("0100") ? "7E8064100BE3FA813\r\r>" : "7E804410C1AF8\r\r>";
}

/// Answers each line after `latency`.
test::LoopbackServer adapter(std::chrono::milliseconds latency) {
  return test::LoopbackServer([latency](test::LoopbackConnection& tester) {
    std::array<std::uint8_t, 256> bytes{};
    std::string line;
    for (std::size_t count = tester.readSome(bytes); count > 0; count = tester.readSome(bytes))
      for (const std::uint8_t byte : std::span(bytes).first(count)) {
        if (byte != '\r') {
          line += static_cast<char>(byte);
          continue;
        }
        if (latency.count() > 0 && line.starts_with("010C")) std::this_thread::sleep_for(latency);
        tester.write(bytesOf(answerTo(line)));
        line.clear();
      }
  });
}

void sendAndWait(test::LoopbackConnection& connection) {
  std::array<std::uint8_t, 256> bytes{};
  connection.write(bytesOf(kRequest));
  for (std::size_t count = 1; count > 0 && std::find(bytes.begin(), bytes.end(), '>') == bytes.end();)
    count = connection.readSome(bytes);
}

/// A link that has found its bus and knows how many frames the answer has.
class ReadyLink {
 public:
  explicit ReadyLink(std::uint16_t port)
      : link_(std::make_unique<host::TcpStream>("127.0.0.1", port, clock_), std::nullopt, clock_) {
    link_.open();
    for (int i = 0; i < 3; ++i) request();
  }
  ~ReadyLink() { link_.close(); }
  bool request() {
    link_.send({0x7E0, "OBD-II"}, request_);
    return test::received(link_, response_, std::chrono::milliseconds(1000));
  }

 private:
  host::SystemLinkClock clock_;
  host::Elm327Link link_;
  const host::Link::Bytes request_{0x01, 0x0C};
  host::Link::Bytes response_;
};

bench::Rates race(benchmark::State& state, std::chrono::milliseconds latency, int requests) {
  const test::LoopbackServer server = adapter(latency);
  const test::LoopbackServer bareServer = adapter(latency);
  ReadyLink link(server.port());
  test::LoopbackConnection bare(bench::connectedSocket(bareServer.port()));
  return bench::raceRequests(
      state, requests, [&] { return link.request(); }, [&] { sendAndWait(bare); });
}

/// `of_goal` is the rate as a share of the lower of 2,000 requests a second and 80 % of the bare loop's rate.
void elm327(benchmark::State& state) {
  constexpr double kEnough = 2000;
  constexpr double kShare = 0.8;
  const bench::Rates rates = race(state, {}, 500);
  state.counters["of_goal"] = rates.ours / std::min(kEnough, kShare * rates.bare);
}

void elm327AtTheLatencyOfAnAdapter(benchmark::State& state) { race(state, bench::kLatencyOfACar, 5); }

BENCHMARK(elm327)->UseRealTime()->Iterations(10);
BENCHMARK(elm327AtTheLatencyOfAnAdapter)->UseRealTime()->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
  bench::stayOnOneCore();
  bench::Goals goals;
  const std::string direct = "elm327/iterations:10/real_time";
  goals.absolute("elm327_requests_of_the_goal", direct, bench::atLeast(1), "of_goal");
  goals.absolute("elm327_requests_at_20_ms_latency", "elm327AtTheLatencyOfAnAdapter/iterations:5/real_time",
                 bench::atLeast(bench::kShareAtLatency), "of_bare");
  return goals.run(argc, argv);
}
