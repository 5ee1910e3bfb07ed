#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tarnlog::test {

/// What a measurement file (MDF 4.10) holds, read by somebody who takes nothing on trust.
struct MdfContent {
  struct Channel {
    std::string name;
    std::string unit;
    int type = 0;
    std::uint32_t bits = 0;
    std::optional<std::pair<double, double>> range;
    std::vector<std::string>
        values;  ///< numbers in their shortest form, labels, texts, bytes as they are; "-" where invalid
  };
  struct Group {
    std::string name;
    std::string source;
    std::string sourcePath;
    std::vector<Channel> channels;
    std::uint64_t records = 0;
  };
  bool finished = false;
  std::uint64_t startNanoseconds = 0;
  int zoneMinutes = 0;
  int summerMinutes = 0;
  std::string comment;
  std::vector<std::string> histories;
  std::vector<Group> groups;        ///< without those of values of variable length
  std::vector<std::string> events;  ///< "3 Start 0.5", "2 Gap 1..2.5"
  std::size_t cutBytes = 0;         ///< of an incomplete record at the end
};

/// Reads files of the kind that a polling recorder writes: one unsorted data group. Checks every link, place,
/// length, count and flag, and that no byte belongs to nothing; what is wrong is raised with its place.
class MdfStrictReader {
 public:
  explicit MdfStrictReader(std::string file) : file_(std::move(file)) {}

  MdfContent read() {
    readIdentification();
    const Block header = block(64, "HD", 6, 32);
    readHeader(header);
    readHistories(header.links[1]);
    const Block group = block(header.links[0], "DG", 4, 8);
    check(group.links[0] == 0 && group.links[3] == 0, group.at, "one data group without a comment");
    idBytes_ = at<std::uint8_t>(group.data);
    check(idBytes_ == 1 || idBytes_ == 2 || idBytes_ == 4, group.data, "size of record ids");
    zeros(group.data + 1, 7);
    for (std::uint64_t next = group.links[1]; next != 0;) next = readGroup(next);
    for (const auto& [place, users] : valueUsers_)
      check(users == 1 && groupAt(place).values, place, "a group of values belongs to one channel");
    check(std::ranges::count_if(groups_, &Raw::values) == std::ssize(valueUsers_), group.at,
          "no group of values without a channel");
    readRecords(group.links[2]);
    readEvents(header.links[4]);
    checkNothingElse();
    for (const Raw& raw : groups_)
      if (!raw.values) content_.groups.push_back(raw.content);
    return content_;
  }

 private:
  struct Block {
    std::uint64_t at = 0;
    std::vector<std::uint64_t> links{};
    std::uint64_t data = 0;
    std::uint64_t end = 0;
  };
  struct Cell {
    std::uint64_t at = 0;
    std::uint64_t values = 0;  ///< place of the group of values
    std::optional<std::uint32_t> invalidationBit{};
    int conversion = 0;
    std::vector<double> numbers{};
    std::vector<std::string> labels{};
  };
  struct Raw {
    std::uint64_t at = 0;
    std::uint64_t id = 0;
    bool values = false;
    std::uint64_t dataBytes = 0;
    std::uint64_t invalidationBytes = 0;
    std::uint64_t count = 0;
    std::vector<Cell> cells{};
    std::map<std::uint64_t, std::string> texts{};  ///< by their offset
    std::uint64_t textBytes = 0;
    double newest = 0;
    MdfContent::Group content{};
  };

  [[noreturn]] static void fail(std::uint64_t place, const std::string& what) {
    throw std::runtime_error("at " + std::to_string(place) + ": " + what);
  }
  static void check(bool holds, std::uint64_t place, const std::string& what) {
    if (!holds) fail(place, what);
  }
  template <class T>
  T at(std::uint64_t place) const {
    check(place <= file_.size() && file_.size() - place >= sizeof(T), place, "the file ends");
    T value;
    std::memcpy(&value, file_.data() + place, sizeof value);
    return value;
  }
  std::string textAt(std::uint64_t place, std::size_t size) const {
    check(place <= file_.size() && file_.size() - place >= size, place, "the file ends");
    return file_.substr(place, size);
  }
  void zeros(std::uint64_t place, std::size_t count) const {
    check(textAt(place, count) == std::string(count, '\0'), place, "reserved bytes are 0");
  }

  /// `links` and `data` are exact but for blocks that may have more of them.
  Block block(std::uint64_t place, const std::string& id, std::size_t links, std::size_t data) {
    check(place % 8 == 0, place, id + " at a multiple of 8");
    check(textAt(place, 4) == "##" + id, place, "##" + id);
    zeros(place + 4, 4);
    const auto length = at<std::uint64_t>(place + 8);
    const auto count = at<std::uint64_t>(place + 16);
    const bool open = id == "CC" || id == "EV";
    check(count == links || (open && count > links && count < 100'000), place + 16, id + " number of links");
    Block found{place, {}, place + 24 + count * 8, place + length};
    const bool text = id == "TX" || id == "MD" || id == "DT";
    const std::uint64_t least = 24 + count * 8 + data;
    check(length == least || ((text || open) && length > least), place + 8, id + " length");
    check(id == "DT" || found.end <= file_.size(), place, id + " within the file");
    for (std::size_t i = 0; i < count; ++i) found.links.push_back(at<std::uint64_t>(place + 24 + i * 8));
    const auto [known, added] = blocks_.emplace(place, found.end);
    check(added || known->second == found.end, place, "one block of one length at a place");
    return found;
  }

  std::string zeroEnded(std::uint64_t place, const std::string& id) {
    const Block text = block(place, id, 0, 1);
    check((text.end - text.at) % 8 == 0, place, "texts are padded to 8");
    const std::string all = textAt(text.data, text.end - text.data);
    const std::size_t end = all.find('\0');
    check(end != std::string::npos, place, "texts end with 0");
    zeros(text.data + end, all.size() - end);
    check(all.size() - end <= 8, place, "no more padding than needed");
    return all.substr(0, end);
  }
  std::string optionalText(std::uint64_t place) { return place == 0 ? "" : zeroEnded(place, "TX"); }
  std::string xml(std::uint64_t place, const std::string& element) {
    const std::string text = zeroEnded(place, "MD");
    check(text.starts_with("<" + element + "><TX>") && text.ends_with("</" + element + ">"), place, element);
    return text;
  }

  void readIdentification() {
    const std::string kind = textAt(0, 8);
    content_.finished = kind == "MDF     ";
    check(content_.finished || kind == "UnFinMF ", 0, "identification");
    check(textAt(8, 8) == "4.10    ", 8, "version");
    zeros(24, 4);
    check(at<std::uint16_t>(28) == 410, 28, "version number");
    zeros(30, 30);
    flags_ = at<std::uint16_t>(60);
    check(content_.finished ? flags_ == 0 : (flags_ & ~0x25) == 0, 60, "unfinished flags");
    zeros(62, 2);
  }

  void readHeader(const Block& header) {
    check(header.links[2] == 0 && header.links[3] == 0, header.at, "neither hierarchy nor attachment");
    content_.comment = xml(header.links[5], "HDcomment");
    content_.startNanoseconds = at<std::uint64_t>(header.data);
    content_.zoneMinutes = at<std::int16_t>(header.data + 8);
    content_.summerMinutes = at<std::int16_t>(header.data + 10);
    check(at<std::uint8_t>(header.data + 12) == 2, header.data + 12, "UTC with valid offsets");
    zeros(header.data + 13, 19);
  }

  void readHistories(std::uint64_t place) {
    check(place != 0, 64, "a history");
    while (place != 0) {
      const Block history = block(place, "FH", 2, 16);
      zeros(history.data + 13, 3);
      const std::string comment = xml(history.links[1], "FHcomment");
      for (const char* const tool : {"<tool_id>", "<tool_vendor>", "<tool_version"})
        check(comment.find(tool) != std::string::npos, history.links[1], tool);
      content_.histories.push_back(comment);
      place = history.links[0];
    }
  }

  Raw& groupAt(std::uint64_t place) {
    const auto found = std::ranges::find(groups_, place, &Raw::at);
    check(found != groups_.end(), place, "a channel group");
    return *found;
  }

  std::uint64_t readGroup(std::uint64_t place) {
    const Block group = block(place, "CG", 6, 32);
    Raw raw{.at = place, .id = at<std::uint64_t>(group.data)};
    const auto flags = at<std::uint16_t>(group.data + 16);
    check(flags <= 1, group.data + 16, "flags of a channel group");
    raw.values = flags == 1;
    zeros(group.data + 18, 6);
    raw.count = at<std::uint64_t>(group.data + 8);
    raw.dataBytes = at<std::uint32_t>(group.data + 24);
    raw.invalidationBytes = at<std::uint32_t>(group.data + 28);
    check(raw.id != 0 && (raw.id >> (8 * idBytes_)) == 0, group.data, "a record id that fits");
    check(std::ranges::count(groups_, raw.id, &Raw::id) == 0, group.data, "a record id of its own");
    check(group.links[4] == 0 && group.links[5] == 0, place, "no reduction, no comment");
    if (raw.values) {
      check(group.links[1] == 0 && group.links[2] == 0 && group.links[3] == 0, place, "values alone");
    } else {
      raw.content.name = zeroEnded(group.links[2], "TX");
      if (group.links[3] != 0) readSource(group.links[3], raw.content);
      readChannels(group.links[1], raw);
    }
    groups_.push_back(std::move(raw));
    return group.links[0];
  }

  void readSource(std::uint64_t place, MdfContent::Group& group) {
    const Block source = block(place, "SI", 3, 8);
    group.source = zeroEnded(source.links[0], "TX");
    group.sourcePath = optionalText(source.links[1]);
    check(source.links[2] == 0, place, "no comment");
    check(at<std::uint8_t>(source.data) == 1 && at<std::uint8_t>(source.data + 1) <= 7, source.data,
          "an ECU");
    zeros(source.data + 2, 6);
  }

  void readChannels(std::uint64_t place, Raw& raw) {
    std::vector<bool> used(raw.dataBytes * 8);
    std::set<std::uint32_t> bits;
    check(place != 0, raw.at, "a channel");
    while (place != 0) {
      const Block channel = block(place, "CN", 8, 72);
      readChannel(channel, raw, used, bits);
      place = channel.links[0];
    }
    check(std::ranges::count(used, false) == 0, raw.at, "every bit of a record belongs to a channel");
    check(bits.size() > 8 * (raw.invalidationBytes - 1) || raw.invalidationBytes == 0, raw.at,
          "no more invalidation bytes than bits");
  }

  void readChannel(const Block& block, Raw& raw, std::vector<bool>& used, std::set<std::uint32_t>& bits) {
    const std::uint64_t data = block.data;
    MdfContent::Channel channel;
    Cell cell{.at = at<std::uint32_t>(data + 4), .values = block.links[5]};
    check(block.links[1] == 0 && block.links[3] == 0 && block.links[7] == 0, block.at, "a plain channel");
    channel.name = zeroEnded(block.links[2], "TX");
    channel.unit = optionalText(block.links[6]);
    channel.type = at<std::uint8_t>(data + 2);
    channel.bits = at<std::uint32_t>(data + 8);
    const int kind = at<std::uint8_t>(data);
    const bool first = raw.cells.empty();
    check(kind == (first ? 2 : cell.values != 0 ? 1 : 0), data, "kind of a channel");
    check(at<std::uint8_t>(data + 1) == (first ? 1 : 0), data + 1, "the master is a time");
    check(!first || (channel.type == 4 && channel.bits == 64 && channel.unit == "s"), data, "seconds, f64");
    checkType(channel, cell, data);
    check(at<std::uint8_t>(data + 3) == 0, data + 3, "whole bytes");
    check(cell.at * 8 + channel.bits <= used.size(), data + 4, "a cell within the record");
    for (std::size_t bit = cell.at * 8; bit < cell.at * 8 + channel.bits; ++bit) {
      check(!used[bit], data + 4, "a cell of its own");
      used[bit] = true;
    }
    readFlags(data, channel, cell, raw, bits);
    if (cell.values != 0) ++valueUsers_[cell.values];
    if (block.links[4] != 0) readConversion(block.links[4], cell);
    raw.cells.push_back(std::move(cell));
    raw.content.channels.push_back(std::move(channel));
  }

  static void checkType(const MdfContent::Channel& channel, const Cell& cell, std::uint64_t data) {
    const bool text = channel.type == 6 || channel.type == 7 || channel.type == 10;
    check(text == (cell.values != 0), data + 2, "texts and bytes have variable length");
    check(text || channel.type == 0 || channel.type == 2 || channel.type == 4, data + 2, "type");
    const bool size = channel.bits == 8 || channel.bits == 16 || channel.bits == 32 || channel.bits == 64;
    check(text || channel.type == 4 ? channel.bits == 64 : size, data + 8, "bits");
  }

  void readFlags(std::uint64_t data, MdfContent::Channel& channel, Cell& cell, const Raw& raw,
                 std::set<std::uint32_t>& bits) {
    const auto flags = at<std::uint32_t>(data + 12);
    check((flags & ~(2U | 8U)) == 0, data + 12, "flags of a channel");
    const auto bit = at<std::uint32_t>(data + 16);
    if ((flags & 2) != 0) {
      check(bit < raw.invalidationBytes * 8 && bits.insert(bit).second, data + 16,
            "an invalidation bit of its own");
      cell.invalidationBit = bit;
    }
    check((flags & 2) != 0 || bit == 0, data + 16, "no invalidation bit");
    zeros(data + 20, 4);
    const std::pair range{at<double>(data + 24), at<double>(data + 32)};
    check((flags & 8) != 0 ? range.first < range.second : range == std::pair{0.0, 0.0}, data + 24, "range");
    if ((flags & 8) != 0) channel.range = range;
    zeros(data + 40, 32);
  }

  void readConversion(std::uint64_t place, Cell& cell) {
    const Block conversion = block(place, "CC", 4, 24);
    const std::uint64_t data = conversion.data;
    cell.conversion = at<std::uint8_t>(data);
    zeros(data + 1, 3);
    const std::size_t references = at<std::uint16_t>(data + 4);
    const std::size_t values = at<std::uint16_t>(data + 6);
    zeros(data + 8, 16);
    for (int i = 0; i < 4; ++i)
      check(conversion.links[static_cast<std::size_t>(i)] == 0, place, "plain conversion");
    check(conversion.links.size() == 4 + references, place, "references");
    check(conversion.end == data + 24 + values * 8, place, "values");
    for (std::size_t i = 0; i < values; ++i) cell.numbers.push_back(at<double>(data + 24 + i * 8));
    for (std::size_t i = 4; i < conversion.links.size(); ++i)
      cell.labels.push_back(optionalText(conversion.links[i]));
    const bool linear = cell.conversion == 1 && values == 2 && references == 0;
    check(linear || (cell.conversion == 7 && references == values + 1), data, "kind of conversion");
  }

  void readRecords(std::uint64_t place) {
    check(place != 0, 64, "a data block");
    const Block data = block(place, "DT", 0, 0);
    const bool open = (flags_ & 0x04) != 0;
    check(data.end <= file_.size(), place, "records within the file");
    const std::uint64_t end = open ? file_.size() : data.end;
    blocks_[place] = end;
    std::uint64_t next = data.data;
    while (next < end) {
      const std::uint64_t before = next;
      if (!readRecord(next, end)) {
        check(open, before, "a whole record");
        content_.cutBytes = end - before;
        break;
      }
    }
    for (const Raw& raw : groups_) checkCounts(raw);
  }

  /// False when the file ends in it.
  bool readRecord(std::uint64_t& place, std::uint64_t end) {
    if (end - place < idBytes_) return false;
    std::uint64_t id = 0;
    std::memcpy(&id, file_.data() + place, idBytes_);
    const auto raw = std::ranges::find(groups_, id, &Raw::id);
    check(raw != groups_.end(), place, "a record id of a group");
    std::uint64_t cells = place + idBytes_;
    std::uint64_t size = raw->dataBytes + raw->invalidationBytes;
    if (raw->values) {
      if (end - cells < 4) return false;
      size = at<std::uint32_t>(cells);
      cells += 4;
    }
    if (end - cells < size) return false;
    if (raw->values)
      raw->texts.emplace(std::exchange(raw->textBytes, raw->textBytes + 4 + size), textAt(cells, size));
    else
      readCells(*raw, cells);
    ++raw->content.records;
    place = cells + size;
    return true;
  }

  void readCells(Raw& raw, std::uint64_t cells) {
    const auto time = at<double>(cells + raw.cells[0].at);
    check(time >= raw.newest, cells, "times do not go back, nor before the start");
    raw.newest = time;
    for (std::size_t i = 0; i < raw.cells.size(); ++i) {
      const Cell& cell = raw.cells[i];
      MdfContent::Channel& channel = raw.content.channels[i];
      const std::string value = valueText(cell, channel, cells);
      const std::uint32_t bit = cell.invalidationBit.value_or(0);
      const bool invalid =
          cell.invalidationBit && (at<std::uint8_t>(cells + raw.dataBytes + bit / 8) >> (bit % 8) & 1) != 0;
      channel.values.push_back(invalid ? "-" : value);
    }
  }

  std::string valueText(const Cell& cell, const MdfContent::Channel& channel, std::uint64_t cells) {
    const std::uint64_t place = cells + cell.at;
    if (cell.values != 0) return variableText(cell, channel, place);
    double number = 0;
    std::uint64_t bits = 0;
    std::memcpy(&bits, file_.data() + place, channel.bits / 8);
    const int unused = static_cast<int>(64 - channel.bits);
    if (channel.type == 4)
      number = at<double>(place);
    else if (channel.type == 2)
      number = static_cast<double>(static_cast<std::int64_t>(bits << unused) >> unused);
    else
      number = static_cast<double>(bits);
    if (cell.conversion == 1) return numberText(number * cell.numbers[1] + cell.numbers[0]);
    for (std::size_t i = 0; cell.conversion == 7 && i < cell.numbers.size(); ++i)
      if (cell.numbers[i] == number) return cell.labels[i];
    return numberText(number);
  }

  std::string variableText(const Cell& cell, const MdfContent::Channel& channel, std::uint64_t place) {
    const Raw& values = groupAt(cell.values);
    const auto found = values.texts.find(at<std::uint64_t>(place));
    check(found != values.texts.end(), place, "a value stands before the record that refers to it");
    if (channel.type == 10) return found->second;
    check(found->second.ends_with('\0'), place, "a text ends with 0");
    return found->second.substr(0, found->second.size() - 1);
  }

  void checkCounts(const Raw& raw) const {
    const bool counted = (flags_ & 0x01) == 0 || raw.count != 0;
    check(!counted || raw.count == raw.content.records, raw.at, "the number of records");
    const std::uint64_t sum = raw.dataBytes | raw.invalidationBytes << 32;
    check(!raw.values || ((flags_ & 0x20) != 0 && sum == 0) || sum == raw.textBytes - 4 * raw.content.records,
          raw.at, "the sum of the lengths of values");
  }

  void readEvents(std::uint64_t place) {
    std::map<std::uint64_t, std::size_t> begun;
    while (place != 0) {
      const Block event = block(place, "EV", 5, 32);
      check(event.links.size() == 5 && event.links[1] == 0, place, "an event without parent and scopes");
      check(at<std::uint8_t>(event.data + 1) == 1, event.data, "an event in time");
      zeros(event.data + 4, 12);
      const double time =
          static_cast<double>(at<std::int64_t>(event.data + 16)) * at<double>(event.data + 24);
      const int range = at<std::uint8_t>(event.data + 2);
      check(time >= 0 && range <= 2 && (range == 2) == (event.links[2] != 0), place, "range of an event");
      if (event.links[4] != 0) xml(event.links[4], "EVcomment");
      const std::string name = optionalText(event.links[3]);
      if (range == 2) {
        check(begun.contains(event.links[2]), place, "the begin of a range");
        content_.events[begun.at(event.links[2])] += ".." + numberText(time);
      } else {
        if (range == 1) begun[place] = content_.events.size();
        content_.events.push_back(std::to_string(at<std::uint8_t>(event.data)) + " " + name + " " +
                                  numberText(time));
      }
      place = event.links[0];
    }
  }

  /// Blocks follow each other with nothing but padding between them, to the end of a finished file.
  void checkNothingElse() const {
    std::uint64_t end = 64;
    for (const auto& [begin, blockEnd] : blocks_) {
      check(begin >= end, begin, "blocks do not overlap");
      check(begin - end < 8, end, "bytes that belong to no block");
      zeros(end, begin - end);
      end = blockEnd;
    }
    check(!content_.finished || file_.size() - end < 8, end, "bytes that belong to no block");
  }

  static std::string numberText(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
  }

  std::string file_;
  std::uint16_t flags_ = 0;
  std::size_t idBytes_ = 0;
  std::map<std::uint64_t, std::uint64_t> blocks_;  ///< begin and end
  std::vector<Raw> groups_;
  std::map<std::uint64_t, int> valueUsers_;
  MdfContent content_;
};

}  // namespace tarnlog::test
