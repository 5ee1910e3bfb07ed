#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "acquisition/TarnAcq.h"
#include "apps/tarn-record/ConsoleScreen.h"
#include "platform/time/Clock.h"

namespace tarnlog::record {

/// Prints lines to standard error, with one line of progress below them when that is a terminal.
class ProgressLine {
 public:
  explicit ProgressLine(const Clock& clock, bool terminal) : clock_(clock), terminal_(terminal) {}

  void print(std::string_view line);
  /// Redraws the progress line, at most four times a second.
  void show(const TarnAcq& acq, const ConsoleScreen& screen);
  void clear();

 private:
  const Clock& clock_;
  bool terminal_;
  bool shown_ = false;
  Milliseconds lastShown_ = 0;
  std::uint64_t lastCycles_ = 0;
};

/// "com  recording 12.3 s  rows 123  35.2 cycles/s  /rec/16-11-26_19h05mn07.txt"
std::string progressText(const TarnAcq& acq, const ConsoleScreen& screen, double cyclesPerSecond);

}  // namespace tarnlog::record
