#pragma once

#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sched.h>
#include <sys/socket.h>

#include <chrono>
#include <cstdint>

/// What benchmarks of links share: a bare socket to a peer on this machine, and rates by the clock on the
/// wall.
namespace tarnlog::bench {

/// How long a real adapter or gateway takes.
inline constexpr std::chrono::milliseconds kLatencyOfACar{20};
/// Our rate of requests at that latency, of the rate that the latency itself lets pass.
inline constexpr double kShareAtLatency = 0.97;

/// Keeps this thread, and those it starts, on the core it runs on. Where the kernel puts two threads that
/// wait for each other decides a rate more than what they do: waking another core can take longer than a
/// request.
inline void stayOnOneCore() {
  cpu_set_t core;
  CPU_ZERO(&core);
  CPU_SET(static_cast<std::size_t>(::sched_getcpu()), &core);
  ::sched_setaffinity(0, sizeof core, &core);
}

/// Requests a second of the clock on the wall: what counts where two programs take turns.
class Rate {
 public:
  double of(std::int64_t requests) const {
    const std::chrono::duration<double> spent = Time::now() - start_;
    return static_cast<double>(requests) / spent.count();
  }

 private:
  using Time = std::chrono::steady_clock;
  Time::time_point start_ = Time::now();
};

struct Rates {
  double ours;
  double bare;
};

/// Shows our rate of requests, also as a share of that of a bare loop on the same kind of socket. Both run in
/// turn within each iteration, `requests` at a time, so that what slows the machine slows both.
template <class Ours, class Bare>
Rates raceRequests(benchmark::State& state, int requests, Ours&& ours, Bare&& bare) {
  Rates sum{0, 0};
  for (auto _ : state) {
    const Rate rate;
    for (int i = 0; i < requests; ++i)
      if (!ours()) state.SkipWithError("no answer");
    sum.ours += rate.of(requests);
    const Rate bareRate;
    for (int i = 0; i < requests; ++i) bare();
    sum.bare += bareRate.of(requests);
  }
  const auto rounds = static_cast<double>(state.iterations());
  state.counters["requests"] = sum.ours / rounds;
  state.counters["of_bare"] = sum.ours / sum.bare;
  return {sum.ours / rounds, sum.bare / rounds};
}

/// A socket that is connected to a port of this machine.
inline int connectedSocket(std::uint16_t port) {
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

}  // namespace tarnlog::bench
