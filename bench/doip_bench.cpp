// Diagnostics over IP on the loopback interface, against a loop that only sends and waits on the same kind of
// socket: with a gateway that answers at once, with one that takes the 20 ms of a real car, and with one that
// writes its answer in parts, each of which waits until the one before is acknowledged.

#include <array>
#include <chrono>
#include <span>
#include <thread>
#include <vector>

#include "bench/support/Goals.h"
#include "bench/support/Loopback.h"
#include "host/link/SystemLinkClock.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/stream/TcpStream.h"
#include "host/service/HexText.h"
#include "tests/support/Asking.h"
#include "tests/support/LoopbackServer.h"

namespace {

using namespace tarnlog;
using Bytes = std::vector<std::uint8_t>;

const Bytes kActivation = *host::bytesFromHex("02 FD 00 05 00 00 00 07 0E 00 00 00 00 00 00");
const Bytes kGranted = *host::bytesFromHex("02 FD 00 06 00 00 00 09 0E 00 10 01 10 00 00 00 00");
const Bytes kRequest = *host::bytesFromHex("02 FD 80 01 00 00 00 07 0E 00 10 01 22 F1 90");
const Bytes kAnswers = *host::bytesFromHex(
    "02 FD 80 02 00 00 00 05 10 01 0E 00 00 "
    "02 FD 80 01 00 00 00 0C 10 01 0E 00 62 F1 90 01 02 03 04 05");

/// How a gateway writes its answers.
enum class Writes : std::uint8_t { whole, parts };

/// Each header and each payload by itself. The system sends the first at once, the others when that is
/// acknowledged.
void writeInParts(test::LoopbackConnection& tester) {
  constexpr std::array<std::size_t, 4> kParts{8, 5, 8, 12};
  std::span<const std::uint8_t> rest(kAnswers);
  for (const std::size_t part : kParts) {
    tester.write(rest.first(part));
    rest = rest.subspan(part);
  }
}

/// Grants the connection and answers each request after `latency`: the acknowledgement and the data.
test::LoopbackServer gateway(std::chrono::milliseconds latency, Writes writes = Writes::whole) {
  return test::LoopbackServer([latency, writes](test::LoopbackConnection& tester) {
    Bytes activation(kActivation.size());
    tester.read(activation);
    tester.write(kGranted);
    for (Bytes request(kRequest.size()); tester.read(request);) {
      if (latency.count() > 0) std::this_thread::sleep_for(latency);
      if (writes == Writes::whole)
        tester.write(kAnswers);
      else
        writeInParts(tester);
    }
  });
}

/// The same conversation on a bare socket.
class BareTester {
 public:
  explicit BareTester(std::uint16_t port) : socket_(bench::connectedSocket(port)), connection_(socket_) {
    Bytes granted(kGranted.size());
    connection_.write(kActivation);
    connection_.read(granted);
  }
  void request() {
    connection_.write(kRequest);
    connection_.read(answers_);
  }
  /// Acknowledges each part at once.
  void requestInParts() {
    const int on = 1;
    connection_.write(kRequest);
    for (std::size_t taken = 0; taken < answers_.size();) {
      taken += connection_.readSome(std::span(answers_).subspan(taken));
      ::setsockopt(socket_, IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
    }
  }

 private:
  int socket_;
  test::LoopbackConnection connection_;
  Bytes answers_ = kAnswers;
};

class ReadyLink {
 public:
  explicit ReadyLink(std::uint16_t port)
      : link_(
            {.host = "127.0.0.1", .port = port, .tester = 0x0E00, .ecu = 0x1001},
            [this](const std::string& name, std::uint16_t each) {
              return std::make_unique<host::TcpStream>(name, each, clock_);
            },
            clock_) {
    link_.open();
  }
  ~ReadyLink() { link_.close(); }
  bool request() {
    link_.send({}, service_);
    return test::received(link_, response_, std::chrono::milliseconds(1000));
  }

 private:
  host::SystemLinkClock clock_;
  host::DoipLink link_;
  const Bytes service_ = *host::bytesFromHex("22 F1 90");
  Bytes response_;
};

void race(benchmark::State& state, std::chrono::milliseconds latency, int requests) {
  const test::LoopbackServer server = gateway(latency);
  const test::LoopbackServer bareServer = gateway(latency);
  ReadyLink link(server.port());
  BareTester bare(bareServer.port());
  bench::raceRequests(
      state, requests, [&] { return link.request(); }, [&] { bare.request(); });
}

void doip(benchmark::State& state) { race(state, {}, 500); }
void doipAtTheLatencyOfACar(benchmark::State& state) { race(state, bench::kLatencyOfACar, 5); }

void doipSplitWrites(benchmark::State& state) {
  const test::LoopbackServer server = gateway({}, Writes::parts);
  const test::LoopbackServer bareServer = gateway({}, Writes::parts);
  ReadyLink link(server.port());
  BareTester bare(bareServer.port());
  bench::raceRequests(
      state, 500, [&] { return link.request(); }, [&] { bare.requestInParts(); });
}

BENCHMARK(doip)->UseRealTime()->Iterations(10);
BENCHMARK(doipAtTheLatencyOfACar)->UseRealTime()->Iterations(5);
BENCHMARK(doipSplitWrites)->UseRealTime()->Iterations(10);

}  // namespace

int main(int argc, char** argv) {
  bench::stayOnOneCore();
  bench::Goals goals;
  goals.absolute("doip_requests_of_a_bare_loop", "doip/iterations:10/real_time", bench::atLeast(0.8),
                 "of_bare");
  goals.absolute("doip_requests_at_20_ms_latency", "doipAtTheLatencyOfACar/iterations:5/real_time",
                 bench::atLeast(bench::kShareAtLatency), "of_bare");
  goals.absolute("doip_split_writes", "doipSplitWrites/iterations:10/real_time", bench::atLeast(0.9),
                 "of_bare");
  return goals.run(argc, argv);
}
