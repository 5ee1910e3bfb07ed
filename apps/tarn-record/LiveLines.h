#pragma once

#include <cstdint>
#include <string>

#include "acquisition/SampleSink.h"
#include "apps/tarn-record/LiveValues.h"
#include "samples/JsonLinesSink.h"

namespace tarnlog::record {

/// Tells values for programs that look for lines, when they change: the seconds since the acquisition began,
/// ECU/REQUEST/DATA, the value as the host shows it, and its unit, with tabs between them. Lines that the
/// target does not take are counted, and told where they are missing.
class LiveLines : public SampleSink {
 public:
  /// The target outlives this.
  explicit LiveLines(LineTarget& target) : target_(target) {}

  void begin(const SampleBeginning& beginning) override;
  void answer(const SampleAnswer& answer) override;
  void cycle(const SampleCycle& cycle) override;
  void failure(const SampleFailure& failure) override;
  void end(std::int64_t at) override;

 private:
  void handOver();

  LineTarget& target_;
  LiveValues values_;
  std::int64_t begin_ = 0;
  std::int64_t waitingSince_ = 0;  ///< time of the first answer in `lines_`
  std::string lines_;
  std::uint64_t lost_ = 0;  ///< lines
};

}  // namespace tarnlog::record
