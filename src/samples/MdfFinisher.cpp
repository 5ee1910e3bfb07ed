#include "samples/MdfFinisher.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "mdf/BlockWriter.h"
#include "mdf/LittleEndian.h"
#include "mdf/Mdf.h"
#include "platform/base/TarnError.h"
#include "samples/MdfLayout.h"

namespace tarnlog {

namespace {

[[noreturn]] void refuse(std::string_view what, std::uint64_t place, const std::string& why) {
  throw TarnError(1, "MdfFinisher", std::string(what) + " at " + std::to_string(place) + ": " + why);
}

/// A block that stands in the file as it should.
class Block {
 public:
  Block(std::string_view file, std::uint64_t place, const mdf::BlockKind& kind)
      : file_(file), place_(place), kind_(kind) {
    const std::uint64_t least = mdf::linkPlace(0, kind.links) + kind.data;
    if (place % mdf::kAlignment != 0) refuse(kind.id, place, "not at a multiple of 8");
    if (place > file.size() || file.size() - place < least) refuse(kind.id, place, "the file ends before it");
    if (file.substr(place, kind.id.size()) != kind.id) refuse(kind.id, place, "another block stands there");
    if (length() < least || get<std::uint64_t>(place + 16) < kind.links)
      refuse(kind.id, place, "shorter than such blocks are");
  }

  std::uint64_t place() const { return place_; }
  std::uint64_t length() const { return get<std::uint64_t>(place_ + 8); }
  std::uint64_t link(std::size_t position) const {
    return get<std::uint64_t>(mdf::linkPlace(place_, position));
  }
  template <class T>
  T field(std::size_t at) const {
    return get<T>(mdf::fieldPlace(place_, kind_, at));
  }
  /// The text of a TX.
  std::string_view text() const {
    const std::string_view behind = file_.substr(mdf::linkPlace(place_, 0));
    const std::string_view all = behind.substr(0, length() - mdf::kBlockHead);
    return all.substr(0, all.find('\0'));
  }

 private:
  template <class T>
  T get(std::uint64_t place) const {
    return mdf::get<T>(file_.data() + place);
  }

  std::string_view file_;
  std::uint64_t place_;
  mdf::BlockKind kind_;
};

struct Group {
  std::uint64_t place = 0;
  std::uint64_t id = 0;
  bool values = false;
  std::uint64_t bytes = 0;  ///< of a record without values
  std::optional<MdfLayout::Own> own{};
  std::uint64_t textGroup = 0;  ///< of marks: place of the group that holds the files' names
  std::uint64_t records = 0;
  std::uint64_t valueBytes = 0;
  std::string_view newest{};  ///< value
};

class Finisher {
 public:
  explicit Finisher(std::string_view file) : file_(file) {}

  MdfFinish plan() {
    const bool finished = readIdentification();
    const Block header(file_, mdf::kHeaderAt, mdf::kHeader);
    const Block history(file_, header.link(mdf::link::kFirstHistory), mdf::kHistory);
    const Block dataGroup(file_, header.link(mdf::link::kFirstDataGroup), mdf::kDataGroup);
    if (const std::uint64_t next = dataGroup.link(mdf::link::kNextDataGroup); next != 0)
      refuse(mdf::kDataGroup.id, next, "a second data group");
    idBytes_ = dataGroup.field<std::uint8_t>(0);
    if (idBytes_ != 1 && idBytes_ != 2 && idBytes_ != 4 && idBytes_ != 8)
      refuse(mdf::kDataGroup.id, dataGroup.place(), "records have no ids of 1, 2, 4 or 8 bytes");
    readGroups(dataGroup.link(mdf::link::kFirstChannelGroup));
    const Block data(file_, dataGroup.link(mdf::link::kDataBlock), mdf::kData);
    if (finished && header.link(mdf::link::kFirstEvent) < file_.size() && isWhole(data))
      return {.keep = file_.size(), .finished = true, .closing = {}};
    const std::size_t keep = walk(data);
    return result(history.place(), data.place(), keep);
  }

 private:
  /// A finished file may have been cut afterwards: then its data, a block behind them, or what one of these
  /// links to, is not there.
  bool isWhole(const Block& data) const {
    std::uint64_t place = data.place() + data.length();
    while (place < file_.size()) {
      place += (mdf::kAlignment - place % mdf::kAlignment) % mdf::kAlignment;
      if (file_.size() - place < mdf::kBlockHead) return false;
      const auto length = mdf::get<std::uint64_t>(file_.data() + place + 8);
      const auto links = mdf::get<std::uint64_t>(file_.data() + place + 16);
      if (length < mdf::kBlockHead || length > file_.size() - place || links > length / 8) return false;
      for (std::uint64_t i = 0; i < links; ++i)
        if (mdf::get<std::uint64_t>(file_.data() + mdf::linkPlace(place, i)) >= file_.size()) return false;
      place += length;
    }
    return place == file_.size();
  }

  /// True when the file says that it is finished.
  bool readIdentification() {
    if (file_.size() < mdf::kIdentificationSize)
      refuse("the file", file_.size(), "ends in its identification");
    const bool finished = file_.starts_with(mdf::kFinished);
    if (!finished && !file_.starts_with(mdf::kUnfinished)) refuse("the file", 0, "not an MDF file");
    if (mdf::get<std::uint16_t>(file_.data() + mdf::kVersionAt) != mdf::kVersion)
      refuse("the file", mdf::kVersionAt, "not of version 4.10");
    flags_ = mdf::get<std::uint16_t>(file_.data() + mdf::kUnfinishedFlagsAt);
    const int known = mdf::kNoRecordCounts | mdf::kNoDataLength | mdf::kNoTextBytes;
    if ((flags_ & ~known) != 0 || mdf::get<std::uint16_t>(file_.data() + mdf::kCustomFlagsAt) != 0)
      refuse("the file", mdf::kUnfinishedFlagsAt, "flags of another maker");
    return finished;
  }

  void readGroups(std::uint64_t place) {
    while (place != 0) {
      const Block block(file_, place, mdf::kChannelGroup);
      const auto flags = block.field<std::uint16_t>(mdf::at::kGroupFlags);
      if ((flags & ~mdf::kVariableLengthGroup) != 0)
        refuse(mdf::kChannelGroup.id, place, "flags of another maker");
      Group group{.place = place, .id = block.field<std::uint64_t>(mdf::at::kGroupRecordId)};
      group.values = flags != 0;
      if (!group.values)
        group.bytes = std::uint64_t{block.field<std::uint32_t>(mdf::at::kGroupDataBytes)} +
                      block.field<std::uint32_t>(mdf::at::kGroupInvalidationBytes);
      noteOwn(block, group);
      if (!groups_.emplace(group.id, groupsInOrder_.size()).second)
        refuse(mdf::kChannelGroup.id, place, "a record id that another group has");
      groupsInOrder_.push_back(group);
      place = block.link(mdf::link::kNextChannelGroup);
    }
  }

  /// Groups of requests have a source.
  void noteOwn(const Block& block, Group& group) const {
    if (group.values || block.link(mdf::link::kGroupSource) != 0) return;
    const std::uint64_t name = block.link(mdf::link::kGroupName);
    if (name == 0) return;
    const std::string_view text = Block(file_, name, mdf::kText).text();
    for (const MdfLayout::Own own : {MdfLayout::kMarks, MdfLayout::kGaps, MdfLayout::kClockSteps}) {
      const MdfGroup& known = own_.groups[own_.own(own)];
      if (text != known.name) continue;
      if (group.bytes != known.recordBytes())
        refuse(mdf::kChannelGroup.id, group.place, "its records are not as long as those of " + known.name);
      group.own = own;
      checkColumns(block.link(mdf::link::kFirstChannel), known, group);
    }
  }

  void checkColumns(std::uint64_t place, const MdfGroup& known, Group& group) const {
    for (const MdfColumn& column : known.columns) {
      const Block channel(file_, place, mdf::kChannel);
      if (Block(file_, channel.link(mdf::link::kChannelName), mdf::kText).text() != column.name ||
          channel.field<std::uint32_t>(mdf::at::kChannelByteOffset) != column.at)
        refuse(mdf::kChannel.id, place, "not the channel \"" + column.name + "\" of " + known.name);
      if (column.variable()) group.textGroup = channel.link(mdf::link::kChannelData);
      place = channel.link(mdf::link::kNextChannel);
    }
  }

  /// Values stand before the record that refers to them: those at the end that wait for theirs are cut off
  /// with it. Returns where the last whole record ends.
  std::size_t walk(const Block& data) {
    at_ = data.place() + mdf::kBlockHead;
    end_ = file_.size();
    if ((flags_ & mdf::kNoDataLength) == 0) end_ = std::min<std::size_t>(end_, data.place() + data.length());
    std::size_t whole = at_;
    while (const std::optional<bool> wasRecord = takeOne()) {
      if (!*wasRecord) continue;
      whole = at_;
      waiting_.clear();
    }
    for (const auto& [group, bytes] : waiting_) {
      --groupsInOrder_[group].records;
      groupsInOrder_[group].valueBytes -= bytes;
    }
    return whole;
  }

  /// A record, true, or a value, false; nothing when there is none that is whole.
  /// A power cut may leave a file longer than what had reached the disk, and holes in what had not.
  std::optional<bool> takeOne() {
    if (end_ - at_ < idBytes_) return std::nullopt;
    const auto found = groups_.find(idAt(at_));
    if (found == groups_.end()) {
      if (records_ == 0 && !onlyZerosFrom(at_)) refuse(mdf::kData.id, at_, "a record with an id of no group");
      return std::nullopt;
    }
    Group& group = groupsInOrder_[found->second];
    return group.values ? takeValue(group, found->second) : takeRecord(group);
  }

  std::optional<bool> takeRecord(Group& group) {
    const std::size_t cells = at_ + idBytes_;
    if (end_ - cells < group.bytes) return std::nullopt;
    ++group.records;
    if (group.own) noteEvent(group, file_.data() + cells);
    at_ = cells + group.bytes;
    ++records_;
    return true;
  }

  std::optional<bool> takeValue(Group& group, std::size_t position) {
    const std::size_t length = at_ + idBytes_;
    if (end_ - length < sizeof(std::uint32_t)) return std::nullopt;
    const auto size = mdf::get<std::uint32_t>(file_.data() + length);
    const std::size_t value = length + sizeof size;
    if (end_ - value < size) return std::nullopt;
    group.newest = file_.substr(value, size);
    ++group.records;
    group.valueBytes += size;
    waiting_.emplace_back(position, size);
    at_ = value + size;
    return false;
  }

  std::uint64_t idAt(std::size_t place) const {
    char whole[sizeof(std::uint64_t)] = {};
    std::copy_n(file_.data() + place, idBytes_, whole);
    return mdf::get<std::uint64_t>(whole);
  }

  bool onlyZerosFrom(std::size_t place) const {
    return file_.substr(0, end_).find_first_not_of('\0', place) == std::string_view::npos;
  }

  void noteEvent(const Group& group, const char* cells) {
    const MdfGroup& known = own_.groups[own_.own(*group.own)];
    const auto number = [&](std::size_t column) {
      return mdf::get<double>(cells + known.columns[column].at);
    };
    const auto time = [&](std::size_t column) { return std::int64_t{std::llround(number(column) * 1e6)}; };
    if (group.own == MdfLayout::kGaps) {
      events_.push_back(gapEvent(time(0), time(1)));
    } else if (group.own == MdfLayout::kClockSteps) {
      events_.push_back(clockStepEvent(time(0), number(1)));
    } else {
      const auto kind = mdf::get<SampleMark::Kind>(cells + known.columns[1].at);
      const auto count = mdf::get<std::uint32_t>(cells + known.columns[2].at);
      events_.push_back(markEvent(kind, time(0), count, newestText(group.textGroup)));
    }
  }

  std::string_view newestText(std::uint64_t place) const {
    const auto group = std::ranges::find(groupsInOrder_, place, &Group::place);
    if (group == groupsInOrder_.end()) return {};
    return group->newest.substr(0, group->newest.find('\0'));
  }

  MdfFinish result(std::uint64_t history, std::uint64_t data, std::size_t keep) {
    MdfFinish finish{.keep = keep, .cutBytes = end_ - keep, .records = records_, .closing = {}};
    finish.closing.data = data;
    finish.closing.dataBytes = keep - data - mdf::kBlockHead;
    finish.closing.history = history;
    finish.closing.events = std::move(events_);
    for (const Group& group : groupsInOrder_) {
      finish.closing.counts.push_back({group.place, group.records});
      if (group.values) finish.closing.counts.back().valueBytes = group.valueBytes;
    }
    return finish;
  }

  std::string_view file_;
  std::uint16_t flags_ = 0;
  std::size_t idBytes_ = 0;
  const MdfLayout own_ = mdfLayout(std::vector<MdfGroup>{});
  std::vector<Group> groupsInOrder_;
  std::unordered_map<std::uint64_t, std::size_t> groups_;  ///< positions by id
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::uint64_t records_ = 0;
  std::vector<std::pair<std::size_t, std::uint64_t>> waiting_;  ///< values: group and length
  std::vector<MdfEvent> events_;
};

}  // namespace

MdfFinish planMdfFinish(std::string_view file) { return Finisher(file).plan(); }

void finishMdf(FileStream& copy, const MdfFinish& finish) {
  const std::string none(sizeof(std::uint64_t), '\0');
  copy.writeAt(mdf::linkPlace(mdf::kHeaderAt, mdf::link::kFirstEvent), none);
  copy.writeAt(mdf::linkPlace(finish.closing.history, mdf::link::kNextHistory), none);
  closeMdf(copy, finish.closing);
}

}  // namespace tarnlog
