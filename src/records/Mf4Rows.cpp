#include "records/Mf4Rows.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr std::size_t kLengthBytes = 4;  ///< before the bytes of a value of variable length
constexpr std::size_t kLongestText = 16 * 1024 * 1024;
constexpr std::size_t kKeptTexts = 1024 * 1024;  ///< bytes

}  // namespace

void Mf4Texts::add(std::string_view bytes) {
  kept_.push_back({end_, std::string(bytes)});
  end_ += kLengthBytes + bytes.size();
  bytes_ += bytes.size() + sizeof(Text);
  while (bytes_ > kKeptTexts && kept_.size() > 1) {
    bytes_ -= kept_.front().bytes.size() + sizeof(Text);
    kept_.pop_front();
  }
}

std::optional<std::string_view> Mf4Texts::at(std::uint64_t offset) const {
  const auto found = std::lower_bound(kept_.begin(), kept_.end(), offset,
                                      [](const Text& text, std::uint64_t o) { return text.offset < o; });
  if (found == kept_.end() || found->offset != offset) return std::nullopt;
  return found->bytes;
}

Mf4Rows::Mf4Rows(const ReadableFile& file, const Mf4DataGroup& data, std::size_t block, const Mf4Group* only)
    : file_(file), data_(data), only_(only), place_(data.from), block_(block), counts_(data.groups.size()) {
  for (std::size_t i = 0; i < data.groups.size(); ++i) positions_.emplace(data.groups[i].recordId, i);
}

/// So many bytes behind the beginning of the next record; null where the data end before.
const char* Mf4Rows::bytesAt(std::size_t offset, std::size_t count) {
  const std::uint64_t from = place_ + offset;
  if (from + count > data_.till) return nullptr;
  if (from < blockPlace_ || from + count > blockPlace_ + blockSize_) {
    blockPlace_ = place_;
    block_.resize(std::max(block_.size(), offset + count));
    const std::uint64_t left = data_.till - place_;
    blockSize_ = file_.readAt(place_, block_.data(),
                              static_cast<std::size_t>(std::min<std::uint64_t>(block_.size(), left)));
    if (blockSize_ < offset + count) return nullptr;
  }
  return block_.data() + (from - blockPlace_);
}

std::optional<std::size_t> Mf4Rows::positionOf(std::uint64_t id) const {
  if (data_.idBytes == 0) return data_.groups.empty() ? std::nullopt : std::optional<std::size_t>(0);
  const auto found = positions_.find(id);
  return found == positions_.end() ? std::nullopt : std::optional(found->second);
}

std::nullptr_t Mf4Rows::end() {
  damage_.cutBytes = data_.till - place_;
  if (damage_.cutBytes != 0) damage_.cutAt = place_;
  place_ = data_.till;
  return nullptr;
}

void Mf4Rows::goOn() {
  if (damage_.foreignAt != 0) {
    place_ = data_.till;
    return;
  }
  if (damage_.cutBytes != 0) place_ = damage_.cutAt;
  damage_.cutAt = damage_.cutBytes = 0;
  blockSize_ = 0;
}

/// Goes to the next record of samples or notes; what is of variable length on the way is kept.
const Mf4Group* Mf4Rows::nextRecord() {
  while (place_ < data_.till) {
    std::uint64_t id = 0;
    const char* const idBytes = bytesAt(0, data_.idBytes);
    if (data_.idBytes != 0 && idBytes == nullptr) return end();
    std::copy_n(idBytes, data_.idBytes, reinterpret_cast<char*>(&id));
    const auto position = positionOf(id);
    if (!position) {
      damage_.foreignAt = place_;
      damage_.foreignId = id;
      place_ = data_.till;
      return nullptr;
    }
    const Mf4Group& group = data_.groups[*position];
    if (group.role == Mf4Group::Role::Texts) {
      if (!takeText(*position)) return end();
      continue;
    }
    if (group.recordBytes() + data_.idBytes == 0) return end();
    record_ = bytesAt(data_.idBytes, group.recordBytes());
    if (record_ == nullptr) return end();
    place_ += data_.idBytes + group.recordBytes();
    ++number_;
    ++counts_[*position];
    if (only_ == nullptr || only_ == &group) return &group;
  }
  return nullptr;
}

bool Mf4Rows::takeText(std::size_t position) {
  const char* const length = bytesAt(data_.idBytes, kLengthBytes);
  if (length == nullptr) return false;
  const auto size = mdf::get<std::uint32_t>(length);
  if (size > kLongestText) return false;
  const char* const bytes = bytesAt(data_.idBytes + kLengthBytes, size);
  if (bytes == nullptr) return false;
  texts_[data_.groups[position].place].add({bytes, size});
  ++counts_[position];
  place_ += data_.idBytes + kLengthBytes + size;
  return true;
}

bool Mf4Rows::setTime(Mf4Row& row, const Mf4Group& group) {
  row.group = &group;
  row.number = number_;
  row.texts.clear();
  const bool timed = !group.channels.empty() || group.master.kind == mdf::ChannelKind::Master;
  const RecordValue time = timed && isValid(group.master, record_, group.dataBytes)
                               ? fixedValue(group.master, record_, row.texts)
                               : RecordValue();
  row.time = time.number;
  if (time.kind == RecordValue::Kind::Number && std::isfinite(time.number)) return true;
  ++damage_.timeless;
  return false;
}

bool Mf4Rows::nextTime(Mf4Row& row) {
  const Mf4Group* group = nullptr;
  do {
    group = nextRecord();
    if (group == nullptr) return false;
  } while (!setTime(row, *group));
  return true;
}

bool Mf4Rows::next(Mf4Row& row) {
  if (!nextTime(row)) return false;
  row.values.clear();
  for (const Mf4Channel& channel : row.group->channels)
    row.values.push_back(value(channel, *row.group, row.texts));
  return true;
}

RecordValue Mf4Rows::value(const Mf4Channel& channel, const Mf4Group& group, TextArena& texts) {
  if (!isValid(channel, record_, group.dataBytes)) return {};
  if (channel.kind == mdf::ChannelKind::VariableLength) return variableValue(channel, texts);
  return fixedValue(channel, record_, texts);
}

/// From the group of variable length, else from the block that a sorted file keeps them in.
RecordValue Mf4Rows::variableValue(const Mf4Channel& channel, TextArena& texts) {
  const std::uint64_t offset = variableOffset(channel, record_);
  if (channel.variableEnd != 0) {
    if (readSignalData(channel, offset)) return textValue(channel.type, longText_, texts);
  } else if (const auto kept = texts_.find(channel.variable); kept != texts_.end()) {
    if (const auto bytes = kept->second.at(offset)) return textValue(channel.type, *bytes, texts);
  }
  ++damage_.lostTexts;
  return {};
}

bool Mf4Rows::readSignalData(const Mf4Channel& channel, std::uint64_t offset) {
  if (offset > channel.variableEnd - channel.variable) return false;
  const std::uint64_t place = channel.variable + offset;
  std::array<char, kLengthBytes> length{};
  if (file_.readAt(place, length.data(), length.size()) < length.size()) return false;
  const auto size = mdf::get<std::uint32_t>(length.data());
  if (size > kLongestText || place + kLengthBytes + size > channel.variableEnd) return false;
  longText_.resize(size);
  return file_.readAt(place + kLengthBytes, longText_.data(), size) == size;
}

}  // namespace tarnlog
