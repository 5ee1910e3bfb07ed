#include "records/RecordMarks.h"

#include <charconv>

namespace tarnlog {

namespace {

using Kind = RecordNote::Kind;

constexpr std::string_view kEvent = "event";

}  // namespace

RecordNote markNote(std::string_view mark, double time) {
  RecordNote note{Kind::Event, time, time, 0, {}};
  if (mark == "Start") note.kind = Kind::Start;
  if (mark == "Stop") note.kind = Kind::Stop;
  if (mark.starts_with(kEvent))
    std::from_chars(mark.data() + kEvent.size(), mark.data() + mark.size(), note.number);
  return note;
}

std::string markText(const RecordNote& note) {
  switch (note.kind) {
    case Kind::Start:
      return "Start";
    case Kind::Stop:
      return "Stop";
    case Kind::Gap:
      return "gap";
    case Kind::Failure:
      return "failure";
    case Kind::ClockStep:
      return "clock step";
    case Kind::Event:
      break;
  }
  return std::string(kEvent) + (note.number == 0 ? std::string() : std::to_string(note.number));
}

}  // namespace tarnlog
