#include "samples/MdfRecord.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "mdf/LittleEndian.h"
#include "platform/ferrox3/Value.h"

namespace tarnlog {

void MdfRecord::begin(const MdfGroup& group) {
  bytes_.assign(group.recordBytes(), '\0');
  dataBytes_ = group.dataBytes;
}

void MdfRecord::setTime(const MdfColumn& column, std::int64_t microseconds) {
  mdf::put(bytes_.data() + column.at, microseconds);
}

void MdfRecord::setBits(const MdfColumn& column, std::uint64_t bits) {
  char whole[sizeof bits];
  mdf::put(whole, bits);
  std::copy_n(whole, column.bytes, bytes_.data() + column.at);
}

void MdfRecord::setNumber(const MdfColumn& column, double number) {
  mdf::put(bytes_.data() + column.at, number);
}

/// Readers take texts up to a 0.
void MdfRecord::setVariable(const MdfColumn& column, std::string_view value) {
  const bool text = column.kind == MdfColumn::Kind::Text;
  mdf::put(bytes_.data() + column.at, std::uint64_t{value.size() + (text ? 1 : 0)});
  bytes_.append(value);
  if (text) bytes_.push_back('\0');
}

void MdfRecord::setInvalid(const MdfColumn& column) {
  char& byte = bytes_[dataBytes_ + *column.invalidationBit / 8];
  byte = static_cast<char>(static_cast<unsigned char>(byte) | (1U << (*column.invalidationBit % 8)));
}

namespace {

std::optional<std::int64_t> wholeNumber(const ferrox3::DataItem& item, const MdfColumn& column) {
  if (column.scaling) return item.rawNumber();
  const double number = ferrox3::numericValue(item.value());
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(number) || number < Limits::min() || number > Limits::max()) return std::nullopt;
  return std::llround(number);
}

std::string_view variableValue(const ferrox3::DataItem& item) {
  if (const auto* const text = std::get_if<std::string>(&item.value())) return *text;
  if (const auto* const bytes = std::get_if<ferrox3::Bytes>(&item.value()))
    return {reinterpret_cast<const char*>(bytes->data()), bytes->size()};
  return {};
}

/// A reader that does not know invalidation bits sees no number, an empty text, or 0.
void encodeItem(const ferrox3::DataItem& item, const MdfColumn& column, MdfRecord& record) {
  const double* const number = std::get_if<double>(&item.value());
  bool valid = number == nullptr || !std::isnan(*number);
  if (column.variable()) {
    record.setVariable(column, variableValue(item));
  } else if (column.kind == MdfColumn::Kind::Number) {
    record.setNumber(column, ferrox3::numericValue(item.value()));
  } else if (valid) {
    const std::optional<std::int64_t> whole = wholeNumber(item, column);
    record.setBits(column, static_cast<std::uint64_t>(whole.value_or(0)));
    valid = whole.has_value();
  }
  if (!valid) record.setInvalid(column);
}

}  // namespace

void mdfMark(const MdfLayout& layout, SampleMark::Kind kind, std::int64_t at, std::int32_t number,
             std::string_view file, MdfRecord& record) {
  const MdfGroup& group = layout.groups.at(layout.own(MdfLayout::kMarks));
  record.begin(group);
  record.setTime(group.columns[0], at);
  record.setBits(group.columns[1], static_cast<std::uint64_t>(kind));
  record.setBits(group.columns[2], static_cast<std::uint64_t>(number));
  record.setVariable(group.columns[3], file);
}

void mdfGap(const MdfLayout& layout, std::int64_t from, std::int64_t till, MdfRecord& record) {
  const MdfGroup& group = layout.groups.at(layout.own(MdfLayout::kGaps));
  record.begin(group);
  record.setTime(group.columns[0], from);
  record.setTime(group.columns[1], till);
}

void mdfFailure(const MdfLayout& layout, std::int64_t at, std::int64_t sent, std::string_view request,
                std::string_view reason, MdfRecord& record) {
  const MdfGroup& group = layout.groups.at(layout.own(MdfLayout::kFailures));
  record.begin(group);
  record.setTime(group.columns[0], at);
  record.setTime(group.columns[1], sent);
  record.setVariable(group.columns[2], request);
  record.setVariable(group.columns[3], reason);
}

void mdfClockStep(const MdfLayout& layout, std::int64_t at, double step, MdfRecord& record) {
  const MdfGroup& group = layout.groups.at(layout.own(MdfLayout::kClockSteps));
  record.begin(group);
  record.setTime(group.columns[0], at);
  record.setNumber(group.columns[1], step);
}

void encodeAnswer(const SampleRequest& request, const MdfGroup& group, const SampleAnswer& answer,
                  MdfRecord& record) {
  record.begin(group);
  record.setTime(group.columns[0], answer.received);
  record.setTime(group.columns[1], answer.sent);
  record.setBits(group.columns[2], answer.sequence);
  for (std::size_t i = 0; i < request.items.size(); ++i)
    encodeItem(*request.items[i], group.columns[MdfLayout::kFirstItem + i], record);
}

}  // namespace tarnlog
