#include "records/Mf4Reader.h"

#include <algorithm>
#include <limits>
#include <queue>
#include <utility>

#include "records/Mf4Stream.h"

namespace tarnlog {

namespace {

using Role = Mf4Group::Role;

constexpr std::size_t kBlocks = 16 * 1024 * 1024;  ///< bytes that all streams together read at a time
constexpr std::size_t kSmallestBlock = 4096;
constexpr std::size_t kLargestBlock = 256 * 1024;

std::string atByte(std::uint64_t place) { return "byte " + std::to_string(place) + ": "; }

std::size_t recordKinds(const Mf4DataGroup& data) {
  return static_cast<std::size_t>(
      std::count_if(data.groups.begin(), data.groups.end(),
                    [](const Mf4Group& group) { return group.role != Role::Texts; }));
}

RecordNote noteOf(const Mf4Row& row) {
  using Kind = RecordNote::Kind;
  const auto& values = row.values;
  RecordNote note{Kind::Event, row.time, row.time, 0, {}};
  switch (row.group->role) {
    case Role::Marks:
      note.kind = values[0].number == 0 ? Kind::Start : values[0].number == 1 ? Kind::Stop : Kind::Event;
      note.number = static_cast<std::uint32_t>(std::clamp(values[1].number, 0.0, 4294967295.0));
      note.text = values[2].text;
      break;
    case Role::Gaps:
      note.kind = Kind::Gap;
      note.till = values[0].number;
      break;
    case Role::Failures:
      note.kind = Kind::Failure;
      note.text = values[2].text;
      break;
    default:
      note.kind = Kind::ClockStep;
      note.till = values[0].number;
  }
  return note;
}

void tell(const Mf4Row& row, RecordConsumer& consumer) {
  const Mf4Group& group = *row.group;
  if (group.role != Role::Samples) return consumer.note(noteOf(row));
  RecordRow told{group.column, row.time, {}, std::span(row.values).subspan(group.leading), {}, {}};
  if (group.leading == 2) {
    if (row.values[0].kind == RecordValue::Kind::Number) told.requestTime = row.values[0].number;
    told.sequence = static_cast<std::uint64_t>(std::clamp(row.values[1].number, 0.0, 9007199254740992.0));
  }
  consumer.row(told);
}

}  // namespace

Mf4Reader::Mf4Reader(const ReadableFile& file) : file_(file), layout_(readLayout(file)) {
  recordings_.push_back(layout_.head);
}

Mf4Reader::~Mf4Reader() = default;

/// One for each data group; where its records are in no order, one for each of its groups, which by
/// themselves are.
Mf4Reader::Streams Mf4Reader::openStreams() const {
  std::size_t most = 0;
  for (const Mf4DataGroup& data : layout_.dataGroups) most += recordKinds(data);
  const std::size_t block =
      std::clamp(kBlocks / std::max<std::size_t>(most, 1), kSmallestBlock, kLargestBlock);
  Streams streams;
  for (const Mf4DataGroup& data : layout_.dataGroups) {
    const bool several = recordKinds(data) > 1;
    if (!several || nearlyOrdered(file_, data, block)) {
      streams.push_back(std::make_unique<Mf4Stream>(file_, data, block, several ? Mf4Stream::kWindow : 1));
      continue;
    }
    for (const Mf4Group& group : data.groups)
      if (group.role != Role::Texts)
        streams.push_back(std::make_unique<Mf4Stream>(file_, data, block, 1, &group));
  }
  return streams;
}

void Mf4Reader::read(RecordConsumer& consumer) {
  streams_ = openStreams();
  consumer.recording(0);
  merge(consumer);
  tellMissing();
}

bool Mf4Reader::readOn(RecordConsumer& consumer) {
  const Mf4Layout now = readLayout(file_);
  const bool goesOn =
      !now.finished && layout_.events.empty() && now.events.empty() &&
      std::equal(now.dataGroups.begin(), now.dataGroups.end(), layout_.dataGroups.begin(),
                 layout_.dataGroups.end(), [](const Mf4DataGroup& a, const Mf4DataGroup& b) {
                   return a.from == b.from && a.till >= b.till && a.groups.size() == b.groups.size();
                 });
  if (!goesOn) return false;
  layout_.lacking = now.lacking;
  for (std::size_t i = 0; i < now.dataGroups.size(); ++i) layout_.dataGroups[i].till = now.dataGroups[i].till;
  for (const auto& stream : streams_) stream->goOn();
  consumer.recording(0);
  merge(consumer);
  tellMissing();
  return true;
}

void Mf4Reader::merge(RecordConsumer& consumer) const {
  auto event = layout_.events.begin();
  const auto tellEventsUpTo = [&](double time) {
    for (; event != layout_.events.end() && event->time <= time; ++event) consumer.note(*event);
  };
  const auto isLater = [&](std::size_t a, std::size_t b) {
    return std::pair(streams_[a]->row().time, a) > std::pair(streams_[b]->row().time, b);
  };
  std::priority_queue<std::size_t, std::vector<std::size_t>, decltype(isLater)> oldest(isLater);
  for (std::size_t i = 0; i < streams_.size(); ++i)
    if (streams_[i]->next()) oldest.push(i);
  while (!oldest.empty()) {
    const std::size_t first = oldest.top();
    oldest.pop();
    tellEventsUpTo(streams_[first]->row().time);
    tell(streams_[first]->row(), consumer);
    if (streams_[first]->next()) oldest.push(first);
  }
  tellEventsUpTo(std::numeric_limits<double>::infinity());
}

void Mf4Reader::tellMissing() {
  missing_.clear();
  if (!layout_.finished) missing_.emplace_back("the file is not closed: its recording goes on or was killed");
  if (layout_.lacking != 0)
    missing_.push_back("the file ends " + std::to_string(layout_.lacking) + " bytes before its data do");
  if (layout_.historyLacks) missing_.emplace_back("what was noted when it was closed cannot be read");
  if (!layout_.eventTrouble.empty())
    missing_.push_back(layout_.eventTrouble + "; further events are not read");
  const Mf4DataGroup* last = nullptr;
  for (const auto& stream : streams_)
    if (std::exchange(last, &stream->data()) != &stream->data()) tellDamage(stream->rows(), stream->data());
}

void Mf4Reader::tellDamage(const Mf4Rows& rows, const Mf4DataGroup& data) {
  const Mf4Damage& damage = rows.damage();
  if (damage.cutBytes != 0)
    missing_.push_back(atByte(damage.cutAt) + "the last record is not whole, " +
                       std::to_string(damage.cutBytes) + " bytes passed over");
  if (damage.foreignAt != 0)
    missing_.push_back(atByte(damage.foreignAt) + "a record of id " + std::to_string(damage.foreignId) +
                       ", which no group has; what follows is not read");
  if (damage.lostTexts != 0)
    missing_.push_back(std::to_string(damage.lostTexts) + " texts are not in the file");
  if (damage.timeless != 0)
    missing_.push_back(std::to_string(damage.timeless) + " records without a time passed over");
  for (std::size_t i = 0; i < data.groups.size(); ++i) {
    const Mf4Group& group = data.groups[i];
    if (group.role != Role::Texts && group.records > rows.counts()[i])
      missing_.push_back(group.name + ": " + std::to_string(rows.counts()[i]) + " of " +
                         std::to_string(group.records) + " records");
  }
}

}  // namespace tarnlog
