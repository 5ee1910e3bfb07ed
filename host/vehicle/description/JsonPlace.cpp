#include "host/vehicle/description/JsonPlace.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

#include "host/service/HexText.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::size_t kLongestFrame = 4095;

/// Number of letters to add, drop or change to turn one word into the other.
std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

std::string quoted(std::string_view text) {
  constexpr std::size_t kShown = 40;
  std::size_t length = std::min(text.size(), kShown);
  while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
    --length;
  std::string shown = "\"";
  for (const char character : text.substr(0, length))
    shown += static_cast<unsigned char>(character) < 0x20 ? ' ' : character;
  return shown + (length < text.size() ? "...\"" : "\"");
}

/// What to write instead of an unknown key.
std::string suggestion(std::string_view key, std::initializer_list<std::string_view> known) {
  constexpr std::size_t kLongestGuess = 30;
  std::string_view nearest;
  std::size_t smallest = 3;
  for (const std::string_view word : known) {
    const std::size_t distance = key.size() > kLongestGuess ? smallest : editDistance(key, word);
    if (distance < smallest && distance < word.size()) {
      smallest = distance;
      nearest = word;
    }
  }
  if (!nearest.empty()) return fmt::format("did you mean {}?", quoted(nearest));
  std::string all;
  for (const std::string_view word : known) all += (all.empty() ? "" : ", ") + quoted(word);
  return "known keys are " + all;
}

}  // namespace

bool JsonPlace::boolean() const {
  if (const auto* const value = std::get_if<bool>(&value_->content)) return *value;
  expected("true or false");
}

double JsonPlace::number() const {
  if (const auto* const whole = std::get_if<std::int64_t>(&value_->content))
    return static_cast<double>(*whole);
  if (const auto* const value = std::get_if<double>(&value_->content)) return *value;
  expected("a number");
}

std::int64_t JsonPlace::integer(std::int64_t lowest, std::int64_t highest) const {
  constexpr double kExact = 9007199254740992.0;  // 2^53
  const auto* const whole = std::get_if<std::int64_t>(&value_->content);
  const auto* const real = std::get_if<double>(&value_->content);
  std::optional<std::int64_t> value;
  if (whole != nullptr) value = *whole;
  if (real != nullptr && std::abs(*real) <= kExact && std::trunc(*real) == *real)
    value = static_cast<std::int64_t>(*real);
  if (value && *value >= lowest && *value <= highest) return *value;
  expected(fmt::format("an integer from {} to {}", lowest, highest));
}

std::uint32_t JsonPlace::natural(std::uint32_t highest) const {
  const auto* const hex = std::get_if<std::string>(&value_->content);
  if (hex == nullptr) return static_cast<std::uint32_t>(integer(0, highest));
  std::uint32_t value = 0;
  const bool prefixed = hex->size() > 2 && (hex->starts_with("0x") || hex->starts_with("0X"));
  if (prefixed) {
    const char* const last = hex->data() + hex->size();
    const auto [end, error] = std::from_chars(hex->data() + 2, last, value, 16);
    if (error == std::errc{} && end == last && value <= highest) return value;
  }
  expected(fmt::format("a number from 0 to {}, or the same in hexadecimal as text from \"0x0\" to \"0x{:X}\"",
                       highest, highest));
}

const std::string& JsonPlace::text() const {
  if (const auto* const value = std::get_if<std::string>(&value_->content)) return *value;
  expected("a text");
}

const std::string& JsonPlace::name() const {
  const std::string& value = text();
  const bool clean = std::none_of(value.begin(), value.end(), [](char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
  });
  if (value.empty() || !clean) expected("a text that is not empty and has no control characters");
  return value;
}

std::vector<std::uint8_t> JsonPlace::frame() const {
  auto bytes = bytesFromHex(text());
  if (bytes && !bytes->empty() && bytes->size() <= kLongestFrame) return std::move(*bytes);
  expected("1 to 4095 bytes of two hexadecimal digits each, like \"21 80\"");
}

std::size_t JsonPlace::choice(std::initializer_list<std::string_view> texts) const {
  if (isText()) {
    const auto found = std::find(texts.begin(), texts.end(), text());
    if (found != texts.end()) return static_cast<std::size_t>(found - texts.begin());
  }
  std::string all;
  for (const std::string_view choice : texts) all += (all.empty() ? "" : ", ") + quoted(choice);
  expected("one of " + all);
}

JsonObject JsonPlace::object(std::initializer_list<std::string_view> knownKeys) const {
  const auto* const members = std::get_if<JsonValue::Object>(&value_->content);
  if (members == nullptr) expected("an object");
  if (knownKeys.size() != 0) {
    for (const JsonMember& member : *members)
      if (std::find(knownKeys.begin(), knownKeys.end(), member.key) == knownKeys.end())
        fail(fmt::format("unknown key {}; {}", quoted(member.key), suggestion(member.key, knownKeys)));
  }
  return {*this, *members};
}

const JsonValue::List& JsonPlace::list() const {
  if (const auto* const values = std::get_if<JsonValue::List>(&value_->content)) return *values;
  expected("a list");
}

void JsonPlace::expected(std::string_view what) const {
  fail(fmt::format("expected {}, found {}", what, found()));
}

void JsonPlace::fail(std::string_view message) const {
  const std::string place = pointer();
  throw TarnError(1, "Vehicle description",
                  fmt::format("{}: {}{}{}", *fileName_, place, place.empty() ? "" : ": ", message));
}

std::string JsonPlace::pointer() const {
  if (parent_ == nullptr) return {};
  return pointerTo(parent_->pointer(), key_.data() != nullptr ? std::string(key_) : std::to_string(index_));
}

std::string JsonPlace::found() const {
  if (const auto* const text = std::get_if<std::string>(&value_->content)) return quoted(*text);
  if (const auto* const flag = std::get_if<bool>(&value_->content)) return *flag ? "true" : "false";
  if (const auto* const whole = std::get_if<std::int64_t>(&value_->content)) return fmt::to_string(*whole);
  if (const auto* const real = std::get_if<double>(&value_->content)) return fmt::to_string(*real);
  if (isList()) return list().empty() ? "an empty list" : "a list";
  return std::holds_alternative<std::monostate>(value_->content) ? "null" : "an object";
}

std::optional<JsonPlace> JsonObject::find(std::string_view key) const {
  for (const JsonMember& member : members_)
    if (member.key == key) return child(member);
  return std::nullopt;
}

JsonPlace JsonObject::require(std::string_view key) const {
  if (const auto found = find(key)) return *found;
  place_.fail(fmt::format("the key {} is missing", quoted(key)));
}

bool JsonObject::boolean(std::string_view key, bool otherwise) const {
  const auto found = find(key);
  return found ? found->boolean() : otherwise;
}

double JsonObject::number(std::string_view key, double otherwise) const {
  const auto found = find(key);
  return found ? found->number() : otherwise;
}

std::int64_t JsonObject::integer(std::string_view key, std::int64_t lowest, std::int64_t highest,
                                 std::int64_t otherwise) const {
  const auto found = find(key);
  return found ? found->integer(lowest, highest) : otherwise;
}

}  // namespace tarnlog::host
