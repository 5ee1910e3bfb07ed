#include "apps/tarn-record/ProgressLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <utility>

#include "acquisition/AcqWords.h"
#include "apps/common/TerminalText.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

constexpr std::int32_t kRedraw = 250;     // ms
constexpr std::int32_t kRateSpan = 1000;  // ms; over less, a few cycles more or less make the rate jump
constexpr const char* kEraseLine = "\r\033[K";
constexpr std::size_t kUsualWidth = 80;

std::size_t terminalWidth() {
  winsize size{};
  const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

}  // namespace

std::string progressText(const TarnAcq& acq, const ConsoleScreen& screen, double cyclesPerSecond,
                         char decimalSeparator) {
  const std::string recording =
      acq.Recording() ? Told::tr("recording {} s", words::elapsedText(screen.elapsed(), decimalSeparator))
                      : Told::tr("not recording");
  return Told::tr("{:5} {}  rows {}  {:.1f} cycles/s  {}", words::of(screen.state()).caption, recording,
                  acq.rowsWritten(), cyclesPerSecond, acq.RecordPath());
}

std::string firstCharacters(const std::string& text, std::size_t count) {
  std::size_t at = 0;
  for (; at < text.size(); ++at)
    if (startsCharacter(text[at]) && count-- == 0) break;
  return text.substr(0, at);
}

ProgressLine::ProgressLine(const Clock& clock, NonWaitingStream& out, bool terminal, char decimalSeparator)
    : clock_(clock),
      out_(out),
      lines_(clock, [this](std::string_view line) { printLine(line); }),
      terminal_(terminal),
      decimalSeparator_(decimalSeparator) {}

/// Above the progress line, which the next `show` draws anew.
void ProgressLine::printLine(std::string_view line) {
  if (makeRoom_) makeRoom_();
  out_.write((shown_ ? kEraseLine : "") + printableLine(line) + "\n");
}

void ProgressLine::printAbove(std::function<void()> makeRoom) {
  terminal_ = false;
  makeRoom_ = std::move(makeRoom);
}

std::string ProgressLine::text(const TarnAcq& acq, const ConsoleScreen& screen) {
  measureRate(acq.cycles(), clock_.milliseconds());
  return printableLine(progressText(acq, screen, rate_, decimalSeparator_));
}

/// A terminal that is stopped gets no progress, which would be old when it goes on.
void ProgressLine::show(const TarnAcq& acq, const ConsoleScreen& screen) {
  out_.flush();
  lines_.tellOverdue();
  if (!terminal_ || !out_.empty()) return;
  const Milliseconds now = clock_.milliseconds();
  const std::int32_t since = millisecondsBetween(lastShown_, now);
  if (shown_ && since < kRedraw) return;
  // A line that wraps could not be erased.
  out_.write(kEraseLine + firstCharacters(text(acq, screen), terminalWidth() - 1));
  shown_ = true;
  lastShown_ = now;
}

void ProgressLine::measureRate(std::uint64_t cycles, Milliseconds now) {
  const std::int32_t span = millisecondsBetween(rateSince_, now);
  if (measured_ && span < kRateSpan) return;
  rate_ = measured_ && cycles >= rateCycles_ ? 1000.0 * static_cast<double>(cycles - rateCycles_) / span : 0;
  measured_ = true;
  rateSince_ = now;
  rateCycles_ = cycles;
}

void ProgressLine::end() {
  lines_.tellAll();
  if (shown_) out_.write(kEraseLine);
}

}  // namespace tarnlog::record
