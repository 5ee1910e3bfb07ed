#include "samples/MdfFile.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "mdf/LittleEndian.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr std::size_t kMostPending = 1 << 20;  // bytes
/// The file shows further ones in the groups of their own alone: memory does not grow with the recording.
constexpr std::size_t kMostEvents = 20'000;

}  // namespace

MdfFile::MdfFile(std::unique_ptr<FileStream> stream, std::string path, const MdfLayout& layout,
                 const MdfAbout& about)
    : stream_(std::move(stream)), path_(std::move(path)), layout_(layout), start_(about.start) {
  MdfHead head = mdfHead(layout, about);
  places_ = std::move(head.groups);
  history_ = head.history;
  data_ = head.data;
  counts_.records.resize(layout.groups.size());
  counts_.valueBytes.resize(layout.valueGroups);
  written_ = counts_;
  stream_->writeOrOwe(head.bytes);
  headWritten_ = !stream_->failing();
}

void MdfFile::add(std::size_t group, std::int64_t at, std::string_view record) {
  if (at < start_) return;
  if (!pending_.empty() && (at - firstPending_ >= kBlockSpan || pending_.size() > kMostPending)) flush();
  if (pending_.empty()) firstPending_ = at;
  const MdfGroup& target = layout_.groups[group];
  const std::size_t ids = (target.variables.size() + 1) * layout_.idBytes;
  const std::size_t lengths = target.variables.size() * sizeof(std::uint32_t);
  char* const values = pending_.room(ids + lengths + record.size());
  pending_.end(putRecord(putValues(values, target, record), target, record));
  ++counts_.records[group];
  ++counts_.all;
}

char* MdfFile::putId(char* to, std::uint64_t id) const {
  char whole[sizeof id];
  mdf::put(whole, id);
  return std::copy_n(whole, layout_.idBytes, to);
}

/// Values of variable length stand before the record that refers to them.
char* MdfFile::putValues(char* to, const MdfGroup& group, std::string_view record) const {
  std::string_view values = record.substr(group.recordBytes());
  for (const std::size_t i : group.variables) {
    const MdfColumn& column = group.columns[i];
    const auto size = mdf::get<std::uint64_t>(record.data() + column.at);
    to = mdf::put(putId(to, column.valueId), static_cast<std::uint32_t>(size));
    to = std::copy_n(values.data(), size, to);
    values.remove_prefix(size);
  }
  return to;
}

char* MdfFile::putRecord(char* to, const MdfGroup& group, std::string_view record) {
  char* const cells = putId(to, group.id);
  char* const end = std::copy_n(record.data(), group.recordBytes(), cells);
  patchTimes(cells, group);
  patchValues(cells, group);
  return end;
}

/// The time axis does not begin before the file does: a gap that was there before is seen from then on.
void MdfFile::patchTimes(char* cells, const MdfGroup& group) const {
  for (const std::size_t i : group.times) {
    char* const cell = cells + group.columns[i].at;
    const std::int64_t time = mdf::get<std::int64_t>(cell) - start_;
    mdf::put(cell, static_cast<double>(i == 0 ? std::max<std::int64_t>(time, 0) : time) / 1e6);
  }
}

/// A cell has the length of its value until now; in the file it says where that value is among its group's.
void MdfFile::patchValues(char* cells, const MdfGroup& group) {
  for (const std::size_t i : group.variables) {
    const MdfColumn& column = group.columns[i];
    char* const cell = cells + column.at;
    std::uint64_t& end = counts_.valueBytes[column.valueGroup];
    const auto size = mdf::get<std::uint64_t>(cell);
    mdf::put(cell, end);
    end += sizeof(std::uint32_t) + size;
  }
}

void MdfFile::passed(std::int64_t now, std::int64_t next) {
  if (!pending_.empty() && std::max(now, next) - firstPending_ >= kBlockSpan) flush();
}

/// Behind a cut, records would be read from the wrong byte on.
bool MdfFile::writePending() {
  if (cutShort()) return false;
  try {
    stream_->write(pending_.view());
    return true;
  } catch (const WrittenInPart&) {
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

/// A block that does not get out takes its values with it, so that what follows counts without them.
void MdfFile::flush() {
  if (pending_.empty()) return;
  if (writePending()) {
    dataBytes_ += pending_.size();
    written_ = counts_;
    headWritten_ = true;
  } else {
    lostRecords_ += counts_.all - written_.all;
    counts_ = written_;
  }
  pending_.clear();
}

void MdfFile::note(MdfEvent event) {
  if (events_.size() == kMostEvents || event.till.value_or(event.at) < start_) return;
  event.at = std::max<std::int64_t>(event.at - start_, 0);
  if (event.till) *event.till -= start_;
  events_.push_back(std::move(event));
}

std::optional<MdfClosing> MdfFile::closing() {
  flush();
  if (!headWritten_ || cutShort()) return std::nullopt;
  MdfClosing closing{.data = data_, .dataBytes = dataBytes_, .counts = {}, .events = std::move(events_)};
  closing.history = history_;
  for (std::size_t i = 0; i < layout_.groups.size(); ++i) {
    const MdfGroup& group = layout_.groups[i];
    const std::uint64_t records = written_.records[i];
    closing.counts.push_back({places_[group.id - 1].place, records});
    for (const std::size_t column : group.variables) {
      const MdfColumn& values = group.columns[column];
      const std::uint64_t bytes = written_.valueBytes[values.valueGroup] - records * sizeof(std::uint32_t);
      closing.counts.push_back({places_[values.valueId - 1].place, records, bytes});
    }
  }
  return closing;
}

}  // namespace tarnlog
