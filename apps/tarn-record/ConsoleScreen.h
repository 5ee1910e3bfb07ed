#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "acquisition/SilentAcqScreen.h"

namespace tarnlog::record {

/// The acquisition's screen without a window: log lines go to `print`, errors to `failed`, the state is kept
/// for the progress line, nothing is drawn.
class ConsoleScreen : public SilentAcqScreen {
 public:
  using Print = std::function<void(std::string_view line)>;

  ConsoleScreen(Print print, Print failed) : print_(std::move(print)), failed_(std::move(failed)) {}

  AcquisitionState state() const { return state_; }
  /// Milliseconds that the recording has lasted at its newest row.
  std::int64_t elapsed() const { return elapsed_; }
  /// A record or event file could not be opened since the start.
  bool openFailed() const { return openFailed_; }

  void setState(AcquisitionState state) override { state_ = state; }
  void setElapsed(std::int64_t milliseconds) override { elapsed_ = milliseconds; }
  void setOpenFailure(OpenFailure failure, std::string_view reason) override;
  void appendLogLine(std::string_view line) override { print_(line); }

 private:
  Print print_;
  Print failed_;
  AcquisitionState state_ = AcquisitionState::kIdle;
  std::int64_t elapsed_ = 0;
  bool openFailed_ = false;
};

}  // namespace tarnlog::record
