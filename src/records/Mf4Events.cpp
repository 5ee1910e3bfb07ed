#include "records/Mf4Events.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

using Kind = RecordNote::Kind;

constexpr std::size_t kMostEvents = 100000;

/// Places in the data of an EV block.
constexpr std::size_t kKind = 0;
constexpr std::size_t kSync = 1;
constexpr std::size_t kRange = 2;
constexpr std::size_t kBase = 16;
constexpr std::size_t kFactor = 24;

Kind kindOf(const Mf4Block& block) {
  switch (block.field<mdf::EventKind>(kKind)) {
    case mdf::EventKind::Interrupted:
      return Kind::Gap;
    case mdf::EventKind::StartTrigger:
      return Kind::Start;
    case mdf::EventKind::StopTrigger:
      return Kind::Stop;
    case mdf::EventKind::Marker:
      return Kind::Event;
  }
  return Kind::Event;
}

double timeOf(const Mf4Block& block) {
  return static_cast<double>(block.field<std::int64_t>(kBase)) * block.field<double>(kFactor);
}

class EventReader {
 public:
  EventReader(const Mf4Blocks& blocks, Mf4Layout& layout) : blocks_(blocks), layout_(layout) {}

  void read(std::uint64_t place) {
    while (place != 0) {
      if (layout_.events.size() == kMostEvents || !visited_.emplace(place, layout_.events.size()).second)
        refuseBlock(place, mdf::kEvent.id, "one of too many, or linked twice");
      const Mf4Block block = blocks_.read(place, mdf::kEvent);
      if (block.field<mdf::SyncKind>(kSync) == mdf::SyncKind::Time) add(block);
      place = block.link(mdf::link::kNextEvent);
    }
  }

 private:
  void add(const Mf4Block& block) {
    const double time = timeOf(block);
    if (!std::isfinite(time)) return;
    const auto begun = visited_.find(block.link(mdf::link::kRange));
    if (block.field<mdf::EventRange>(kRange) == mdf::EventRange::End && begun != visited_.end() &&
        begun->second < layout_.events.size()) {
      layout_.events[begun->second].till = time;
      return;
    }
    const std::string text = blocks_.text(block.link(mdf::link::kEventName));
    layout_.eventTexts.push_back(text);
    layout_.events.push_back({kindOf(block), time, time, 0, {}});
  }

  const Mf4Blocks& blocks_;
  Mf4Layout& layout_;
  std::unordered_map<std::uint64_t, std::size_t> visited_;  ///< by place: its event
};

}  // namespace

void readMf4Events(const Mf4Blocks& blocks, std::uint64_t place, Mf4Layout& layout) {
  try {
    EventReader(blocks, layout).read(place);
  } catch (const TarnError& error) {
    layout.eventTrouble = error.what();
  }
  for (std::size_t i = 0; i < layout.events.size(); ++i) layout.events[i].text = layout.eventTexts[i];
  std::stable_sort(layout.events.begin(), layout.events.end(),
                   [](const RecordNote& a, const RecordNote& b) { return a.time < b.time; });
}

}  // namespace tarnlog
