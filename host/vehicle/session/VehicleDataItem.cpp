#include "host/vehicle/session/VehicleDataItem.h"

#include <algorithm>
#include <limits>

#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"

namespace tarnlog::host {
namespace {

constexpr char kNotAvailableText[] = "---";
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// The text or byte array inside a value, made when there is none yet.
template <class Content>
Content& contentOf(ferrox3::Value& value) {
  if (auto* const content = std::get_if<Content>(&value)) return *content;
  return value.emplace<Content>();
}

}  // namespace

std::string VehicleEnumeration::label(std::int32_t position) const {
  if (position < 1 || position > Count())
    throw TarnError(9, "VehicleEnumeration.label", "Subscript out of range");
  return entries_[static_cast<std::size_t>(position - 1)].label;
}

std::int32_t VehicleEnumeration::value(std::string_view label) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const EnumerationEntry& entry) { return entry.label == label; });
  if (found == entries_.end())
    throw TarnError(5, "VehicleEnumeration.value", "No value is called \"" + std::string(label) + "\"");
  return found->value;
}

const std::string* VehicleEnumeration::labelOf(std::int32_t value) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const EnumerationEntry& entry) { return entry.value == value; });
  return found == entries_.end() ? nullptr : &found->label;
}

VehicleDataItem::VehicleDataItem(const DataDescription& description, const VehicleDevice* device,
                                 ferrox3::Request& request, const UserLocale& locale)
    : description_(description),
      device_(device),
      request_(request),
      locale_(locale),
      enumeration_(description.enumeration) {
  setNotAvailable();
}

const ferrox3::Enumeration* VehicleDataItem::enumeration() const {
  return description_.enumeration.empty() ? nullptr : &enumeration_;
}

const std::string& VehicleDataItem::valueText() const {
  if (!textIsCurrent_) writeText();
  return text_;
}

std::optional<std::int64_t> VehicleDataItem::rawNumber() const {
  const DataLayout& layout = description_.layout;
  if (!available_ || !scalingOf(layout)) return std::nullopt;
  return host::rawNumber(layout.field, pattern_);
}

void VehicleDataItem::decode(std::span<const std::uint8_t> response) {
  if (description_.layout.isNumber())
    decodeNumber(response);
  else
    decodeBytes(response);
}

void VehicleDataItem::decodeNumber(std::span<const std::uint8_t> response) {
  const DataLayout& layout = description_.layout;
  if (!layout.field.isWithin(response.size())) {
    setNotAvailable();
    return;
  }
  const std::uint32_t pattern = readBits(layout.field, response.data());
  if (available_ && pattern == pattern_) return;
  if (meansNotAvailable(layout, pattern)) {
    setNotAvailable();
    return;
  }
  const double number = scaledNumber(layout, pattern);
  if (layout.kind == DataKind::integer)
    value_ = static_cast<std::int32_t>(number);
  else
    value_ = number;
  pattern_ = pattern;
  available_ = true;
  textIsCurrent_ = false;
}

void VehicleDataItem::decodeBytes(std::span<const std::uint8_t> response) {
  const DataLayout& layout = description_.layout;
  std::span<const std::uint8_t> bytes;
  if (!findBytes(layout, response, bytes)) {
    setNotAvailable();
    return;
  }
  if (layout.kind == DataKind::text)
    decodeText(layout.characters, bytes, contentOf<std::string>(value_));
  else
    contentOf<ferrox3::Bytes>(value_).assign(bytes.begin(), bytes.end());
  available_ = true;
  textIsCurrent_ = false;
}

void VehicleDataItem::setNotAvailable() {
  available_ = false;
  textIsCurrent_ = false;
  value_ = kNoNumber;
}

void VehicleDataItem::writeText() const {
  text_.clear();
  textIsCurrent_ = true;
  if (!available_) {
    text_ = kNotAvailableText;
  } else if (const auto* const number = std::get_if<double>(&value_)) {
    if (description_.decimals)
      appendFixed(text_, *number, *description_.decimals, locale_.decimalSeparator);
    else
      appendNumber(text_, *number, locale_.decimalSeparator);
  } else if (const auto* const whole = std::get_if<std::int32_t>(&value_)) {
    if (const std::string* const label = enumeration_.labelOf(*whole))
      text_ = *label;
    else if (description_.decimals)
      appendFixed(text_, *whole, *description_.decimals, locale_.decimalSeparator);
    else
      appendNumber(text_, *whole);
  } else if (const auto* const text = std::get_if<std::string>(&value_)) {
    text_ = *text;
  } else {
    appendHex(text_, std::get<ferrox3::Bytes>(value_));
  }
}

}  // namespace tarnlog::host
