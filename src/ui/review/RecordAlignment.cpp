#include "ui/review/RecordAlignment.h"

#include <algorithm>

#include "platform/time/SystemClock.h"

namespace tarnlog {

namespace {

using On = RecordAlignment::On;

RecordNote::Kind kindOf(On on) {
  if (on == On::Event) return RecordNote::Kind::Event;
  return on == On::Stop ? RecordNote::Kind::Stop : RecordNote::Kind::Start;
}

std::optional<double> momentOf(const RecordAlignment& alignment, const TableRecording& recording) {
  const auto isIt = [&](const TableMark& mark) {
    return mark.kind == kindOf(alignment.on) && mark.number == alignment.event;
  };
  const auto found = std::ranges::find_if(recording.marks, isIt);
  if (found != recording.marks.end()) return found->time;
  if (alignment.on == On::Start && recording.rows() != 0) return recording.begin();
  return std::nullopt;
}

/// Records that tell local time began in this system's zone.
std::optional<std::int64_t> utcOfZero(const RecordHead& head) {
  if (head.utcNanoseconds) return head.utcNanoseconds;
  return head.local ? utcOfLocal(*head.local) : std::nullopt;
}

}  // namespace

std::vector<RecordAlignment> alignmentsOf(const TableRecording& first, const TableRecording& other) {
  std::vector<RecordAlignment> known;
  const auto add = [&](const RecordAlignment& alignment) {
    if (std::ranges::find(known, alignment) == known.end() && offsetFor(alignment, first, other))
      known.push_back(alignment);
  };
  add({On::Start, 0});
  add({On::Clock, 0});
  for (const TableMark& mark : first.marks)
    if (mark.kind == RecordNote::Kind::Event) add({On::Event, mark.number});
  add({On::Stop, 0});
  return known;
}

std::optional<double> offsetFor(const RecordAlignment& alignment, const TableRecording& first,
                                const TableRecording& other) {
  if (alignment.on == On::Clock) {
    const auto zero = utcOfZero(first.head);
    const auto otherZero = utcOfZero(other.head);
    if (!zero || !otherZero) return std::nullopt;
    return static_cast<double>(*otherZero - *zero) / 1e9;
  }
  const auto moment = momentOf(alignment, first);
  const auto otherMoment = momentOf(alignment, other);
  if (!moment || !otherMoment) return std::nullopt;
  return *moment - *otherMoment;
}

}  // namespace tarnlog
