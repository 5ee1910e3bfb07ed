#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "acquisition/SampleSink.h"
#include "samples/CycleRates.h"
#include "samples/Quality.h"

namespace tarnlog {

/// Counts how well each recording goes, from the time of its first row on, and the acquisition. It keeps no
/// pointer to what it hears of, so that samples out of a file can be counted just as well: without `begin`,
/// each recording between `recordingBegan` and `recordingEnded`, in the order of their times.
class QualityCounter : public SampleSink {
 public:
  /// Where a polling cycle ends: where `cycle` says so, or, for samples out of a file, where a request comes
  /// that has come in it already.
  enum class Cycles : std::uint8_t { Told, Found };
  using Ended = std::function<void(const std::string& path, const Quality& quality)>;

  explicit QualityCounter(Cycles cycles = Cycles::Told) : cycles_(cycles) {}

  /// Told at the end of each recording, with the path of its record file.
  void setRecordingEnded(Ended ended) { recordingEnded_ = std::move(ended); }
  /// Asked at the end of each recording how many of its rows are on the disk.
  void setRowsSynced(std::function<std::uint64_t()> rowsSynced) { rowsSynced_ = std::move(rowsSynced); }

  /// Of the recording that ended last.
  const Quality& recording() const { return ended_; }
  /// Of the newest acquisition, until its last cycle.
  Quality acquisition() const;

  void begin(const SampleBeginning& beginning) override;
  void context(const SampleContext& context) override { servicesSent_ = context.servicesSent; }
  void answer(const SampleAnswer& answer) override;
  void failure(const SampleFailure& failure) override;
  void cycle(const SampleCycle& cycle) override;
  void recordingBegan(const SampleRecording& recording) override;
  void recordingEnded(std::int64_t at, std::uint64_t rows) override;
  void gap(std::int64_t from, std::int64_t till) override;
  void clockStep(std::int64_t at, std::int64_t nanoseconds) override;
  void end(std::int64_t at) override;

 private:
  /// What one polling cycle brought, or what there was of one that broke off.
  struct Cycle {
    std::optional<std::int64_t> began{};
    bool whole = false;
    SampleCounts counts{};
  };
  /// What has been counted since a certain time.
  struct Tally {
    SampleCounts counts{};
    CycleRates rates{};
    std::int64_t zero = 0;
    std::uint64_t rows = 0;
    std::optional<std::uint64_t> rowsSynced{};

    void add(const Cycle& cycle);
  };

  bool isLate(const SampleAnswer& answer);
  void noteTime(std::int64_t at);
  void close(bool whole);
  void remember(const Cycle& cycle);
  void forgetBefore(std::int64_t time);
  Quality qualityOf(const Tally& tally, std::int64_t till) const;

  Cycles cycles_;
  Ended recordingEnded_;
  std::function<std::uint64_t()> rowsSynced_;
  std::vector<ferrox3::ServiceCount> servicesSent_;
  std::vector<std::int64_t> usual_;  ///< how long answers take, by request, microseconds; 0: none came yet
  std::size_t lastRequest_ = 0;
  std::int64_t newest_ = 0;  ///< time that was heard of
  Cycle open_;
  Tally acquisition_;
  std::optional<Tally> recording_;
  Quality ended_;
  std::string path_;
  std::vector<Cycle> history_;   ///< that a recording may begin with
  std::size_t historyFrom_ = 0;  ///< those before are forgotten
};

}  // namespace tarnlog
