#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "acquisition/TarnAcq.h"
#include "apps/common/NonWaitingStream.h"
#include "apps/common/RepeatedLines.h"
#include "apps/tarn-record/ConsoleScreen.h"
#include "platform/time/Clock.h"

namespace tarnlog::record {

/// Prints lines to standard error, equal ones as one with their number, with one line of progress below them
/// when that is a terminal.
class ProgressLine {
 public:
  ProgressLine(const Clock& clock, NonWaitingStream& out, bool terminal, char decimalSeparator);

  void print(std::string_view line) { lines_.add(line); }
  /// To be called often: goes on with what had to wait, and redraws the progress line, at most four times a
  /// second.
  void show(const TarnAcq& acq, const ConsoleScreen& screen);
  /// Tells what is left to tell and removes the progress line.
  void end();

  /// Somebody else has the lower end of the terminal, and the progress in it: what he does before a line is
  /// printed.
  void printAbove(std::function<void()> makeRoom);
  /// What the progress line would show now.
  std::string text(const TarnAcq& acq, const ConsoleScreen& screen);

 private:
  void printLine(std::string_view line);
  void measureRate(std::uint64_t cycles, Milliseconds now);

  const Clock& clock_;
  NonWaitingStream& out_;
  RepeatedLines lines_;
  bool terminal_;
  std::function<void()> makeRoom_;
  char decimalSeparator_;
  bool shown_ = false;
  bool measured_ = false;  ///< the rate, once
  Milliseconds lastShown_ = 0;
  Milliseconds rateSince_ = 0;
  std::uint64_t rateCycles_ = 0;
  double rate_ = 0;  ///< polling cycles a second
};

/// The first characters of a UTF-8 text.
std::string firstCharacters(const std::string& text, std::size_t count);

/// "com  recording 12.3 s  rows 123  35.2 cycles/s  /rec/16-11-26_19h05mn07.txt"
std::string progressText(const TarnAcq& acq, const ConsoleScreen& screen, double cyclesPerSecond,
                         char decimalSeparator);

}  // namespace tarnlog::record
