#pragma once

#include <cstdint>
#include <optional>

#include "acquisition/TarnAcq.h"
#include "platform/time/Clock.h"

namespace tarnlog::record {

struct RunLimits {
  bool startManually = false;  ///< press start as soon as there is data, and again after each recording
  std::optional<std::int32_t> duration;    ///< seconds from the first polled data on
  std::optional<std::int32_t> recordings;  ///< end after so many finished recordings
};

/// Presses the recorder's buttons in place of a person: starts, stops after the time or the number asked for,
/// and ends the acquisition. Asked after each tick and each signal.
class RunDirector {
 public:
  RunDirector(TarnAcq& acq, const Clock& clock, RunLimits limits);

  void step(bool stopRequested, bool eventRequested);

  /// The time was over before any data arrived.
  bool nothingArrived() const { return nothingArrived_; }

 private:
  void pressStart();
  bool timeOver();
  void stop();

  TarnAcq& acq_;
  const Clock& clock_;
  RunLimits limits_;
  Milliseconds countedFrom_;
  bool dataSeen_ = false;
  bool stopping_ = false;
  bool stopPressed_ = false;
  bool ended_ = false;
  bool nothingArrived_ = false;
};

}  // namespace tarnlog::record
