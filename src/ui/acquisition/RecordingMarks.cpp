#include "ui/acquisition/RecordingMarks.h"

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

std::optional<RecordingMarks::Mark> RecordingMarks::hearEvent(std::int32_t number) {
  return number > 0 ? std::optional(Mark{tr("Event %1").arg(number), kEvent}) : std::nullopt;
}

}  // namespace tarnlog
