#include "ui/acquisition/RecordingMarks.h"

#include <utility>

namespace tarnlog {
namespace {

constexpr Colour kStart = 0x00A000;
constexpr Colour kStop = 0x0000D0;
constexpr Colour kEvent = 0xC06000;

}  // namespace

void RecordingMarks::begin() { *this = {}; }

std::optional<RecordingMarks::Mark> RecordingMarks::hear(RecordingFact fact) {
  const bool begins = fact == RecordingFact::On && !on_;
  const bool ends = (fact == RecordingFact::Off || fact == RecordingFact::Cleared) && on_;
  if (begins) ++recordings_;
  if (begins || ends) on_ = begins;
  if (begins) return Mark{tr("Start %1").arg(recordings_), kStart};
  return ends ? std::optional(Mark{tr("Stop %1").arg(recordings_), kStop}) : std::nullopt;
}

std::optional<RecordingMarks::Mark> RecordingMarks::hear(EventProgress progress) {
  if (std::exchange(eventGoesOn_, progress.goesOn) || !progress.goesOn) return std::nullopt;
  const std::int32_t number = std::exchange(eventNumber_, 0);
  return Mark{number > 0 ? tr("Event %1").arg(number) : tr("Event"), kEvent};
}

}  // namespace tarnlog
