#include "records/Mf4Layout.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <set>

#include "platform/base/TarnError.h"
#include "platform/xml/XmlDocument.h"
#include "records/Mf4Events.h"
#include "records/RecordDate.h"

namespace tarnlog {

namespace {

using Role = Mf4Group::Role;

constexpr std::uint16_t kOldestVersion = 400;
constexpr std::uint16_t kNewestVersion = 499;
constexpr std::size_t kMostBlocks = 200000;  ///< channels and groups
constexpr std::uint32_t kLongestRecord = 16 * 1024 * 1024;
constexpr std::uint16_t kKnownGroupFlags = 0x7;  ///< variable length; of a bus, which changes no record

/// The columns of an answer before its data.
constexpr std::string_view kRequestTime = "request time";
constexpr std::string_view kSequence = "sequence";

struct NotedGroup {
  std::string_view name;
  Role role;
  std::array<std::string_view, 3> channels;  ///< without the master
};
constexpr std::array kNotedGroups = {
    NotedGroup{"Marks", Role::Marks, {"kind", "number", "file"}},
    NotedGroup{"Gaps", Role::Gaps, {"end"}},
    NotedGroup{"Failures", Role::Failures, {"request time", "request", "reason"}},
    NotedGroup{"Clock steps", Role::ClockSteps, {"step"}},
};

bool hasChannels(const Mf4Group& group, const std::array<std::string_view, 3>& names) {
  for (std::size_t i = 0; i < names.size() && !names[i].empty(); ++i)
    if (i >= group.channels.size() || group.channels[i].column.name != names[i]) return false;
  return true;
}

Role roleOf(const Mf4Group& group) {
  const auto found = std::find_if(kNotedGroups.begin(), kNotedGroups.end(), [&](const NotedGroup& each) {
    return group.name == each.name && hasChannels(group, each.channels);
  });
  return found == kNotedGroups.end() ? Role::Samples : found->role;
}

class LayoutReader {
 public:
  explicit LayoutReader(const ReadableFile& file) : blocks_(file) {}

  Mf4Layout read() {
    readIdentification();
    const Mf4Block header = blocks_.read(mdf::kHeaderAt, mdf::kHeader);
    readStart(header);
    readComment(header.link(mdf::link::kHeaderComment));
    layout_.historyLacks =
        !skipOnFailure([&] { readHistory(header.link(mdf::link::kFirstHistory)); });  // nothing depends on it
    for (std::uint64_t place = header.link(mdf::link::kFirstDataGroup); place != 0;)
      place = readDataGroup(place);
    for (Mf4DataGroup& data : layout_.dataGroups)
      for (Mf4Group& group : data.groups) addColumns(group);
    readEvents(header.link(mdf::link::kFirstEvent));
    return std::move(layout_);
  }

 private:
  void readIdentification() {
    std::array<char, mdf::kIdentificationSize> bytes{};
    if (blocks_.file().readAt(0, bytes.data(), bytes.size()) < bytes.size())
      refuseBlock(0, "ID", "the file ends inside it");
    layout_.finished = std::string_view(bytes.data(), mdf::kFinished.size()) == mdf::kFinished;
    const auto version = mdf::get<std::uint16_t>(bytes.data() + mdf::kVersionAt);
    if (version < kOldestVersion || version > kNewestVersion)
      refuseBlock(0, "ID", "version " + std::to_string(version) + ", expected 400 to 499");
    if (!layout_.finished) unfinished_ = mdf::get<std::uint16_t>(bytes.data() + mdf::kUnfinishedFlagsAt);
  }

  void readStart(const Mf4Block& header) {
    constexpr std::size_t kTimeFlags = 12;
    const auto start = header.field<std::int64_t>(0);
    const auto flags = header.field<std::uint8_t>(kTimeFlags);
    if ((flags & static_cast<std::uint8_t>(mdf::TimeFlag::Local)) != 0)
      layout_.head.local = dateOf(std::chrono::sys_seconds(
          std::chrono::floor<std::chrono::seconds>(std::chrono::nanoseconds(start))));
    else
      layout_.head.utcNanoseconds = start;
  }

  void readComment(std::uint64_t place) {
    const std::string comment = blocks_.text(place);
    if (comment.empty()) return;
    XmlDocument document;
    if (document.parse(comment)) return layout_.head.facts.emplace_back("comment", comment), void();
    layout_.head.facts.emplace_back("comment", document.selectSingleNode("HDcomment/TX").text());
    for (const XmlElement& each : document.selectNodes("HDcomment/common_properties//e"))
      layout_.head.facts.emplace_back(each.attributeOrEmpty("name"), each.text());
  }

  /// When this program closes a file, it adds how well the recording went.
  void readHistory(std::uint64_t place) {
    constexpr int kMost = 1000;  // more are linked in a circle
    for (int i = 0; place != 0 && i < kMost; ++i) {
      const Mf4Block block = blocks_.read(place, mdf::kHistory);
      readQuality(blocks_.text(block.link(mdf::link::kHistoryComment)));
      place = block.link(mdf::link::kNextHistory);
    }
  }

  void readQuality(const std::string& comment) {
    XmlDocument document;
    if (document.parse(comment) || document.selectNodes("FHcomment/common_properties//e").empty()) return;
    layout_.head.facts.emplace_back(kQualityFact, document.selectSingleNode("FHcomment/TX").text());
  }

  /// Returns the next one's place, 0 behind the last.
  std::uint64_t readDataGroup(std::uint64_t place) {
    visit(place, mdf::kDataGroup);
    const Mf4Block block = blocks_.read(place, mdf::kDataGroup);
    Mf4DataGroup group;
    group.idBytes = block.field<std::uint8_t>(0);
    if (group.idBytes > 8 || (group.idBytes & (group.idBytes - 1U)) != 0)
      refuseBlock(place, mdf::kDataGroup.id,
                  "record ids of " + std::to_string(group.idBytes) + " bytes, expected 0, 1, 2, 4 or 8");
    for (std::uint64_t next = block.link(mdf::link::kFirstChannelGroup); next != 0;)
      next = readChannelGroup(next, group);
    if (group.idBytes == 0 && group.groups.size() > 1)
      refuseBlock(place, mdf::kDataGroup.id, "several channel groups, but no record ids");
    findRecords(block.link(mdf::link::kDataBlock), group);
    layout_.dataGroups.push_back(std::move(group));
    return block.link(mdf::link::kNextDataGroup);
  }

  /// While a file is written, the length of its last data block is not known.
  void findRecords(std::uint64_t place, Mf4DataGroup& group) {
    if (place == 0) return;
    const std::uint64_t size = blocks_.file().size();
    if (!layout_.finished && place + mdf::kBlockHead > size) return;
    const std::string id = blocks_.id(place);
    if (id != mdf::kData.id) refuseBlock(place, id, "expected a plain data block DT");
    const std::uint64_t length = blocks_.length(place);
    group.from = place + mdf::kBlockHead;
    const bool toTheEnd = (unfinished_ & mdf::kNoDataLength) != 0 && length <= mdf::kBlockHead;
    if (!toTheEnd && length < mdf::kBlockHead) refuseBlock(place, id, "a length below that of its head");
    group.till = toTheEnd ? size : std::min(size, place + std::min(length, size));
    if (!toTheEnd && length > size - place) layout_.lacking += length - (size - place);
  }

  std::uint64_t readChannelGroup(std::uint64_t place, Mf4DataGroup& data) {
    visit(place, mdf::kChannelGroup);
    const Mf4Block block = blocks_.read(place, mdf::kChannelGroup);
    const auto flags = block.field<std::uint16_t>(mdf::at::kGroupFlags);
    if ((flags & ~kKnownGroupFlags) != 0)
      refuseBlock(place, mdf::kChannelGroup.id,
                  "flags " + std::to_string(flags) + ", expected those of 4.10");
    Mf4Group group;
    group.place = place;
    group.recordId = block.field<std::uint64_t>(mdf::at::kGroupRecordId);
    group.records = block.field<std::uint64_t>(mdf::at::kGroupRecords);
    if ((flags & mdf::kVariableLengthGroup) != 0) {
      group.role = Role::Texts;
    } else {
      group.dataBytes = block.field<std::uint32_t>(mdf::at::kGroupDataBytes);
      group.invalidationBytes = block.field<std::uint32_t>(mdf::at::kGroupInvalidationBytes);
      if (group.dataBytes > kLongestRecord || group.invalidationBytes > kLongestRecord)
        refuseBlock(place, mdf::kChannelGroup.id, "records above 16 MB");
      readNames(block, group);
      readChannels(block.link(mdf::link::kFirstChannel), group);
    }
    data.groups.push_back(std::move(group));
    return block.link(mdf::link::kNextChannelGroup);
  }

  void readNames(const Mf4Block& block, Mf4Group& group) {
    group.name = blocks_.text(block.link(mdf::link::kGroupName));
    const std::uint64_t place = block.link(mdf::link::kGroupSource);
    if (place == 0) return;
    const Mf4Block source = blocks_.read(place, mdf::kSource);
    group.ecu = blocks_.text(source.link(mdf::link::kSourceName));
    if (group.ecu.empty()) group.ecu = blocks_.text(source.link(mdf::link::kSourcePath));
  }

  void readChannels(std::uint64_t place, Mf4Group& group) {
    bool timed = false;
    while (place != 0) {
      visit(place, mdf::kChannel);
      const Mf4Block block = blocks_.read(place, mdf::kChannel);
      Mf4Channel channel = readChannel(blocks_, block);
      checkFits(channel, group.dataBytes, group.invalidationBytes);
      if (channel.kind != mdf::ChannelKind::Master)
        group.channels.push_back(std::move(channel));
      else if (std::exchange(timed, true))
        refuseBlock(place, mdf::kChannel.id, "a second master in its group");
      else
        group.master = std::move(channel);
      place = block.link(mdf::link::kNextChannel);
    }
    if (!timed && !group.channels.empty())
      refuseBlock(group.place, mdf::kChannelGroup.id, "has no master channel, expected a time");
    group.role = roleOf(group);
    if (hasChannels(group, {kRequestTime, kSequence, {}}) && group.role == Role::Samples) group.leading = 2;
  }

  void addColumns(Mf4Group& group) {
    if (group.role != Role::Samples) return;
    group.column = layout_.head.groups.size();
    RecordGroup& columns = layout_.head.groups.emplace_back();
    columns.ecu = group.ecu;
    columns.request = group.request();
    for (std::size_t i = group.leading; i < group.channels.size(); ++i) {
      RecordColumn column = group.channels[i].column;
      column.ecu = columns.ecu;
      column.request = columns.request;
      columns.columns.push_back(std::move(column));
    }
  }

  /// What the groups of notes tell is not told again.
  void readEvents(std::uint64_t place) {
    for (const Mf4DataGroup& data : layout_.dataGroups)
      for (const Mf4Group& group : data.groups)
        if (group.role == Role::Marks) return;
    readMf4Events(blocks_, place, layout_);
  }

  /// Links that lead back would never end.
  void visit(std::uint64_t place, const mdf::BlockKind& kind) {
    if (!visited_.insert(place).second) refuseBlock(place, kind.id, "is linked twice");
    if (visited_.size() > kMostBlocks) refuseBlock(place, kind.id, "one of more than 200,000");
  }

  Mf4Blocks blocks_;
  Mf4Layout layout_;
  std::uint16_t unfinished_ = 0;
  std::set<std::uint64_t> visited_;
};

}  // namespace

std::string Mf4Group::request() const {
  const bool after = !ecu.empty() && name.starts_with(ecu + "/");
  return after ? name.substr(ecu.size() + 1) : name;
}

bool isMdf(const ReadableFile& file) {
  std::array<char, mdf::kFinished.size()> bytes{};
  const std::string_view text(bytes.data(), file.readAt(0, bytes.data(), bytes.size()));
  return text == mdf::kFinished || text == mdf::kUnfinished;
}

Mf4Layout readLayout(const ReadableFile& file) { return LayoutReader(file).read(); }

}  // namespace tarnlog
