#include "apps/tarn-record/ProgressLine.h"

#include <fmt/format.h>

namespace tarnlog::record {

namespace {

constexpr std::int32_t kRedraw = 250;  // ms
constexpr const char* kEraseLine = "\r\033[K";

}  // namespace

std::string progressText(const TarnAcq& acq, const ConsoleScreen& screen, double cyclesPerSecond) {
  const std::string recording = acq.Recording() ? "recording " + screen.elapsed() + " s" : "not recording";
  return fmt::format("{:5} {}  rows {}  {:.1f} cycles/s  {}", screen.state(), recording, acq.rowsWritten(),
                     cyclesPerSecond, acq.RecordPath());
}

void ProgressLine::print(std::string_view line) {
  clear();
  std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

void ProgressLine::show(const TarnAcq& acq, const ConsoleScreen& screen) {
  if (!terminal_) return;
  const Milliseconds now = clock_.milliseconds();
  const std::int32_t since = millisecondsBetween(lastShown_, now);
  if (shown_ && since < kRedraw) return;
  const double rate = shown_ && acq.cycles() >= lastCycles_
                          ? 1000.0 * static_cast<double>(acq.cycles() - lastCycles_) / since
                          : 0;
  std::fprintf(stderr, "%s%.200s", kEraseLine, progressText(acq, screen, rate).c_str());
  std::fflush(stderr);
  shown_ = true;
  lastShown_ = now;
  lastCycles_ = acq.cycles();
}

void ProgressLine::clear() {
  if (terminal_ && shown_) std::fputs(kEraseLine, stderr);
  if (terminal_) std::fflush(stderr);
}

}  // namespace tarnlog::record
