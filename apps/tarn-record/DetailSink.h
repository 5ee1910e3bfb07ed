#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "acquisition/SampleSink.h"

namespace tarnlog::record {

/// Tells of an acquisition what helps to find a fault, a line each: how the vehicle is reached, what is asked
/// of which ECU, each state, and each failure with its request.
class DetailSink : public SampleSink {
 public:
  using Print = std::function<void(const std::string& line)>;

  explicit DetailSink(Print print) : print_(std::move(print)) {}

  void begin(const SampleBeginning& beginning) override;
  void context(const SampleContext& context) override;
  void failure(const SampleFailure& failure) override;
  void state(AcquisitionState state, std::int64_t at) override;
  void recordingBegan(const SampleRecording& recording) override;
  void gap(std::int64_t from, std::int64_t till) override;
  void clockStep(std::int64_t at, std::int64_t nanoseconds) override;

 private:
  void tellFacts(const std::vector<ferrox3::Fact>& facts);
  void tellRequests(const SampleBeginning& beginning);

  Print print_;
  std::size_t factsTold_ = 0;
  std::vector<std::string> requests_;  ///< "ECU/REQUEST"
};

/// "polling"
std::string stateText(AcquisitionState state);

}  // namespace tarnlog::record
