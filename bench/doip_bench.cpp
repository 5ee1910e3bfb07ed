// Diagnostics over IP on the loopback interface, against a loop that only sends and waits on the same kind of
// socket: with a gateway that answers at once, and with one that takes the 20 ms of a real car.

#include <netinet/tcp.h>

#include <chrono>
#include <thread>
#include <vector>

#include "bench/support/Goals.h"
#include "host/link/DoipLink.h"
#include "host/link/HexText.h"
#include "host/link/SystemLinkClock.h"
#include "host/link/TcpStream.h"
#include "tests/support/LoopbackServer.h"

namespace {

using namespace tarnlog;
using Bytes = std::vector<std::uint8_t>;
using Time = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLatency{20};

const Bytes kActivation = *host::bytesFromHex("02 FD 00 05 00 00 00 07 0E 00 00 00 00 00 00");
const Bytes kGranted = *host::bytesFromHex("02 FD 00 06 00 00 00 09 0E 00 10 01 10 00 00 00 00");
const Bytes kRequest = *host::bytesFromHex("02 FD 80 01 00 00 00 07 0E 00 10 01 22 F1 90");
const Bytes kAnswers = *host::bytesFromHex(
    "02 FD 80 02 00 00 00 05 10 01 0E 00 00 "
    "02 FD 80 01 00 00 00 0C 10 01 0E 00 62 F1 90 01 02 03 04 05");

/// Grants the connection and answers each request after `latency`: the acknowledgement and the data.
test::LoopbackServer gateway(std::chrono::milliseconds latency) {
  return test::LoopbackServer([latency](test::LoopbackConnection& tester) {
    Bytes activation(kActivation.size());
    tester.read(activation);
    tester.write(kGranted);
    for (Bytes request(kRequest.size()); tester.read(request); tester.write(kAnswers))
      if (latency.count() > 0) std::this_thread::sleep_for(latency);
  });
}

/// Requests a second of the clock on the wall: what counts where two programs take turns.
class Rate {
 public:
  void show(benchmark::State& state) const {
    const std::chrono::duration<double> spent = Time::now() - start_;
    state.counters["requests"] = static_cast<double>(state.iterations()) / spent.count();
  }

 private:
  Time::time_point start_ = Time::now();
};

int connectedSocket(std::uint16_t port) {
  const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
  const int on = 1;
  ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  ::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address);
  return socket;
}

void sendAndWait(benchmark::State& state) {
  const test::LoopbackServer server = gateway({});
  {
    test::LoopbackConnection connection(connectedSocket(server.port()));
    Bytes granted(kGranted.size());
    Bytes answers(kAnswers.size());
    connection.write(kActivation);
    connection.read(granted);
    const Rate rate;
    for (auto _ : state) {
      connection.write(kRequest);
      connection.read(answers);
    }
    rate.show(state);
  }
}

void request(benchmark::State& state, std::chrono::milliseconds latency) {
  const test::LoopbackServer server = gateway(latency);
  host::SystemLinkClock clock;
  host::DoipLink link(
      {.host = "127.0.0.1", .port = server.port(), .tester = 0x0E00, .ecu = 0x1001},
      [&](const std::string& name, std::uint16_t port) {
        return std::make_unique<host::TcpStream>(name, port, clock);
      },
      clock);
  link.open();
  const Bytes service = *host::bytesFromHex("22 F1 90");
  Bytes response;
  const Rate rate;
  for (auto _ : state) {
    link.send({}, service);
    if (!link.receive(response, std::chrono::milliseconds(1000))) state.SkipWithError("no answer");
  }
  rate.show(state);
  link.close();
}

void doip(benchmark::State& state) { request(state, {}); }
void doipAtTheLatencyOfACar(benchmark::State& state) { request(state, kLatency); }

BENCHMARK(sendAndWait)->UseRealTime();
BENCHMARK(doip)->UseRealTime();
BENCHMARK(doipAtTheLatencyOfACar)->UseRealTime()->Iterations(25);

}  // namespace

int main(int argc, char** argv) {
  bench::Goals goals;
  goals.ratio("doip_requests_of_a_bare_loop", "doip/real_time", "sendAndWait/real_time", bench::atLeast(0.8),
              "requests");
  goals.absolute("doip_requests_at_20_ms_latency", "doipAtTheLatencyOfACar/iterations:25/real_time",
                 bench::atLeast(0.97 * 50), "requests");
  return goals.run(argc, argv);
}
