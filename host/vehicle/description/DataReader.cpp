#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>

#include "host/vehicle/description/DescriptionParts.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kLongestResponse = 4095;
constexpr double kLowestInteger = std::numeric_limits<std::int32_t>::min();
constexpr double kHighestInteger = std::numeric_limits<std::int32_t>::max();

std::pair<double, double> valueRange(const DataLayout& layout) {
  const auto scaled = [&](std::int64_t raw) {
    return static_cast<double>(raw) * layout.factor / layout.divisor + layout.offset;
  };
  const double first = scaled(layout.field.lowest());
  const double last = scaled(layout.field.highest());
  return {std::min(first, last), std::max(first, last)};
}

bool fitsInteger(const std::pair<double, double>& range) {
  return range.first >= kLowestInteger && range.second <= kHighestInteger;
}

bool isWhole(double number) { return std::trunc(number) == number; }

void readField(const JsonObject& object, BitField& field) {
  field.byte = static_cast<std::uint16_t>(object.require("byte").integer(0, kLongestResponse - 1));
  field.bytes = static_cast<std::uint8_t>(object.integer("bytes", 1, 4, 1));
  if (field.byte + field.bytes > kLongestResponse)
    object.require("byte").expected(fmt::format("a number that ends within {} bytes", kLongestResponse));
  const std::int64_t width = 8 * field.bytes;
  field.bit = static_cast<std::uint8_t>(object.integer("bit", 0, width - 1, 0));
  const std::int64_t left = width - field.bit;
  field.bits = static_cast<std::uint8_t>(object.integer("bits", 1, left, left));
  field.isSigned = object.boolean("signed", false);
  if (const auto order = object.find("byteOrder"))
    field.order = order->choice({"big", "little"}) == 0 ? ByteOrder::big : ByteOrder::little;
}

double readDivider(const JsonObject& object, std::string_view key) {
  const auto place = object.find(key);
  if (!place) return 1;
  const double value = place->number();
  if (value == 0) place->expected("a number other than 0");
  return value;
}

void readScaling(const JsonObject& object, DataLayout& layout) {
  layout.factor = readDivider(object, "factor");
  layout.divisor = readDivider(object, "divisor");
  layout.offset = object.number("offset", 0);
  const auto [lowest, highest] = valueRange(layout);
  if (!std::isfinite(lowest) || !std::isfinite(highest))
    object.place().fail("expected factor, divisor and offset that give finite values");
}

/// One number, or the first and the last of a range.
BitPatterns readPatterns(const JsonPlace& place, std::uint32_t highest) {
  if (!place.isObject()) {
    const std::uint32_t pattern = place.natural(highest);
    return {pattern, pattern};
  }
  const JsonObject range = place.object({"from", "to"});
  const BitPatterns patterns{range.require("from").natural(highest), range.require("to").natural(highest)};
  if (patterns.from > patterns.to)
    range.require("to").expected(fmt::format("a number from {} on", patterns.from));
  return patterns;
}

void readNotAvailable(const JsonObject& object, DataLayout& layout) {
  const auto place = object.find("notAvailable");
  if (!place) return;
  const std::uint32_t highest = layout.field.mask();
  if (!place->isList()) {
    layout.notAvailable.push_back(readPatterns(*place, highest));
    return;
  }
  if (place->size() == 0) place->expected("at least one number");
  for (std::size_t i = 0; i < place->size(); ++i)
    layout.notAvailable.push_back(readPatterns((*place)[i], highest));
}

/// `integer` or `real`, as written or as the scaling suggests.
DataKind numberKind(const DataLayout& layout, const std::optional<DataKind>& written,
                    const JsonObject& object) {
  const bool fits = fitsInteger(valueRange(layout));
  if (written == DataKind::integer && !fits)
    object.require("type").expected("\"double\" for values that do not fit in 32 bits");
  if (written) return *written;
  const bool whole = layout.divisor == 1 && isWhole(layout.factor) && isWhole(layout.offset);
  return whole && fits ? DataKind::integer : DataKind::real;
}

void readEnumeration(const JsonObject& object, DataDescription& data) {
  const auto place = object.find("enumeration");
  if (!place) return;
  if (data.layout.kind != DataKind::integer)
    place->fail("expected an enumeration only where the values are integers");
  if (place->size() == 0) place->expected("at least one value with its label");
  std::unordered_set<std::int32_t> values;
  std::unordered_set<std::string> labels;
  for (std::size_t i = 0; i < place->size(); ++i) {
    const JsonPlace entryPlace = (*place)[i];
    const JsonObject entry = entryPlace.object({"value", "label"});
    const JsonPlace value = entry.require("value");
    const JsonPlace label = entry.require("label");
    const auto number = static_cast<std::int32_t>(
        value.integer(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    if (!values.insert(number).second) value.expected("a value that has no other label");
    if (!labels.insert(label.name()).second) label.expected("a label that no other value has");
    data.enumeration.push_back(EnumerationEntry{number, label.name()});
  }
}

void readRange(const JsonObject& object, DataDescription& data) {
  const auto [lowest, highest] = valueRange(data.layout);
  data.minimum = object.number("min", lowest);
  data.maximum = object.number("max", highest);
  if (data.minimum <= data.maximum) return;
  const auto place = object.find("max");
  if (place) place->expected(fmt::format("a number from the minimum {} on", data.minimum));
  object.require("min").expected(fmt::format("a number up to the maximum {}", data.maximum));
}

void readNumber(const JsonObject& object, const std::optional<DataKind>& written, DataDescription& data) {
  readField(object, data.layout.field);
  readScaling(object, data.layout);
  readNotAvailable(object, data.layout);
  data.layout.kind = numberKind(data.layout, written, object);
  readEnumeration(object, data);
  readRange(object, data);
  if (const auto place = object.find("decimals")) data.decimals = static_cast<int>(place->integer(0, 15));
  if (const auto place = object.find("encoding")) place->fail("an encoding is for texts only");
}

void readByteRange(const JsonObject& object, DataKind kind, DataLayout& layout) {
  for (const std::string_view key : {"bit", "bits", "byteOrder", "signed", "factor", "divisor", "offset",
                                     "decimals", "min", "max", "enumeration", "notAvailable"})
    if (const auto place = object.find(key))
      place->fail("text and bytes are taken as they are: this key is for numbers");
  layout.kind = kind;
  layout.firstByte = static_cast<std::uint16_t>(object.require("byte").integer(0, kLongestResponse - 1));
  layout.byteCount =
      static_cast<std::uint16_t>(object.integer("bytes", 1, kLongestResponse - layout.firstByte, 0));
  const auto encoding = object.find("encoding");
  if (!encoding) return;
  if (kind != DataKind::text) encoding->fail("an encoding is for texts only");
  layout.characters = encoding->choice({"ascii", "latin1"}) == 0 ? CharacterSet::ascii : CharacterSet::latin1;
}

std::optional<DataKind> readKind(const JsonObject& object) {
  const auto place = object.find("type");
  if (!place) return std::nullopt;
  return static_cast<DataKind>(place->choice({"integer", "double", "text", "bytes"}));
}

}  // namespace

DataDescription readData(const JsonPlace& place) {
  const JsonObject object = place.object(
      {"name",         "byte",     "bytes",  "bit",      "bits",     "byteOrder", "signed", "type",
       "factor",       "divisor",  "offset", "decimals", "unit",     "min",       "max",    "enumeration",
       "notAvailable", "encoding", "device", "failure",  "readable", "reference"});
  DataDescription data;
  data.name = object.require("name").name();
  const auto kind = readKind(object);
  if (kind == DataKind::text || kind == DataKind::bytes)
    readByteRange(object, *kind, data.layout);
  else
    readNumber(object, kind, data);
  if (const auto unit = object.find("unit")) data.unit = unit->text();
  if (const auto device = object.find("device")) data.device = device->name();
  data.failure = object.boolean("failure", false);
  data.readable = object.boolean("readable", true);
  data.reference = object.boolean("reference", false);
  return data;
}

}  // namespace tarnlog::host
