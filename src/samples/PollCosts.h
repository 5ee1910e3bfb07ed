#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "acquisition/SampleSink.h"

namespace tarnlog {

/// What a request costs of the polling.
struct PollCost {
  std::string ecu;
  std::string request;
  std::vector<std::string> data;  ///< names of its items
  double seconds = 0;             ///< of an exchange that brings it
  double share = 0;               ///< of a cycle's time, 0 to 1; exchanges that bring several are shared out
  std::vector<std::size_t> together;  ///< positions of requests that came with it, itself too; empty: alone
};

/// How fast an acquisition polls, and why not faster.
struct PollReport {
  std::size_t data = 0;
  double cyclesPerSecond = 0;  ///< 0: no cycle was whole
  bool sideBySide = false;     ///< ECUs were asked at the same time
  std::string slowestEcu{};
  double slowestSeconds = 0;      ///< of a cycle, that this ECU is asked
  std::vector<PollCost> costs{};  ///< in the order in which they are sent
  std::vector<std::size_t>
      dearest{};       ///< positions of up to three that hold the cycle up most, the first most
  double without = 0;  ///< cycles per second if those were not sent; reckoned

  double cycleSeconds() const { return cyclesPerSecond > 0 ? 1 / cyclesPerSecond : 0; }
};

/// "27 data: 3.1 cycles/s; Catalyst temperature costs 18 %". Empty when no cycle was whole.
std::string pollSummary(const PollReport& report);

/// Measures what each request costs, over the newest acquisition.
class PollCosts : public SampleSink {
 public:
  PollReport report() const;

  void begin(const SampleBeginning& beginning) override;
  void answer(const SampleAnswer& answer) override;
  void failure(const SampleFailure& failure) override;
  void cycle(const SampleCycle& cycle) override;

 private:
  /// A request, and what was measured of it.
  struct Asked {
    PollCost cost{};
    std::size_t ecu = 0;    ///< position in `ecus_`
    std::int64_t time = 0;  ///< of the exchanges that brought it, microseconds
    std::int64_t part = 0;  ///< its part of them
    std::uint64_t count = 0;
  };
  struct Came {
    std::size_t request;
    std::int64_t sent;
    std::int64_t received;
  };

  void takeExchange(std::size_t first, std::size_t last);
  /// Seconds of a cycle that go into exchanges, without some requests.
  double exchangeSeconds(const std::vector<std::size_t>& without, bool sideBySide) const;
  std::vector<double> ecuSeconds(const std::vector<std::size_t>& without) const;

  std::vector<std::string> ecus_;
  std::vector<Asked> asked_;
  std::vector<Came> came_;  ///< in this cycle
  std::uint64_t cycles_ = 0;
  std::int64_t firstBegan_ = 0;
  std::int64_t lastBegan_ = 0;
  std::size_t data_ = 0;
};

}  // namespace tarnlog
