#include "records/RecordTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace tarnlog {

void TextIds::set(std::int64_t row, std::uint32_t id) {
  const auto place = static_cast<std::size_t>(row);
  const std::size_t chunk = place / kChunk;
  const std::size_t offset = place % kChunk;
  if (chunk >= chunks_.size()) chunks_.resize(chunk + 1);
  auto& ids = chunks_[chunk];
  if (ids == nullptr || offset >= ids->size()) {
    // A copy goes on looking at the shorter one.
    auto longer = std::make_shared<std::vector<std::uint32_t>>(std::bit_ceil(offset + 1));
    if (ids != nullptr) std::copy(ids->begin(), ids->end(), longer->begin());
    ids = std::move(longer);
  }
  (*ids)[offset] = id;
}

std::uint32_t TextIds::operator[](std::int64_t row) const {
  const auto place = static_cast<std::size_t>(row);
  if (place / kChunk >= chunks_.size()) return 0;
  const auto& ids = chunks_[place / kChunk];
  return ids == nullptr || place % kChunk >= ids->size() ? 0 : (*ids)[place % kChunk];
}

std::string_view TableColumn::textOf(std::int64_t row) const {
  const std::uint32_t id = textIds[row];
  return id == 0 ? std::string_view() : std::string_view(texts[id - 1]);
}

std::string_view TableColumn::labelOf(std::int64_t row) const {
  const double number = numbers[row];
  if (std::isnan(number)) return textOf(row);
  const auto found = std::find_if(about.labels.begin(), about.labels.end(), [&](const RecordLabel& label) {
    return number >= label.from && number <= label.till;
  });
  return found == about.labels.end() ? std::string_view() : std::string_view(found->text);
}

std::int64_t TableGroup::firstFrom(double time) const {
  std::int64_t first = 0;
  for (std::int64_t last = rows(); first < last;) {
    const std::int64_t middle = first + (last - first) / 2;
    if (times[middle] < time)
      first = middle + 1;
    else
      last = middle;
  }
  return first;
}

std::optional<std::int64_t> TableGroup::rowAt(double time) const {
  const std::int64_t behind = firstFrom(std::nextafter(time, std::numeric_limits<double>::infinity()));
  return behind == 0 ? std::nullopt : std::optional(behind - 1);
}

double TableRecording::begin() const {
  double first = std::numeric_limits<double>::infinity();
  for (const TableGroup& group : groups)
    if (group.rows() != 0) first = std::min(first, group.times[0]);
  return std::isfinite(first) ? first : 0;
}

double TableRecording::end() const {
  double last = -std::numeric_limits<double>::infinity();
  for (const TableGroup& group : groups)
    if (group.rows() != 0) last = std::max(last, group.times[group.rows() - 1]);
  return std::isfinite(last) ? last : 0;
}

std::int64_t TableRecording::rows() const {
  std::int64_t sum = 0;
  for (const TableGroup& group : groups) sum += group.rows();
  return sum;
}

}  // namespace tarnlog
