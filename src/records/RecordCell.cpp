#include "records/RecordCell.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace tarnlog {

namespace {

constexpr std::string_view kNotAvailable = "---";

/// A double holds as many digits, and such a power of ten, exactly: one division then gives the nearest
/// double.
constexpr int kExactDigits = 15;
constexpr std::array kPowers = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

const char* digits(const char* at, const char* end) {
  while (at != end && isDigit(*at)) ++at;
  return at;
}

/// How a number is laid out: -12.5E+06. `end` is null when the text is none.
struct NumberShape {
  const char* separator = nullptr;
  const char* exponent = nullptr;
  const char* end = nullptr;
};

NumberShape shapeOf(const char* at, const char* const end, char separator) {
  NumberShape shape;
  if (at != end && *at == '-') ++at;
  const char* const whole = at;
  at = digits(at, end);
  if (at == whole || (*whole == '0' && at - whole > 1)) return {};
  if (at != end && *at == separator) {
    shape.separator = at;
    const char* const decimals = at + 1;
    at = digits(decimals, end);
    if (at == decimals) return {};
  }
  if (at != end && (*at == 'E' || *at == 'e')) {
    shape.exponent = at++;
    if (at != end && (*at == '+' || *at == '-')) ++at;
    const char* const exponent = at;
    at = digits(at, end);
    if (at == exponent) return {};
  }
  if (at == end) shape.end = at;
  return shape;
}

RecordValue number(double value, const char* begin, const char* end) {
  return {RecordValue::Kind::Number, value, {begin, static_cast<std::size_t>(end - begin)}};
}

RecordValue longNumber(char* begin, char* end, const NumberShape& shape) {
  if (shape.separator != nullptr) begin[shape.separator - begin] = '.';
  double value = 0;
  // What is beyond a double stays readable as a text.
  if (std::from_chars(begin, end, value).ec != std::errc())
    return {RecordValue::Kind::Text, 0, {begin, static_cast<std::size_t>(end - begin)}};
  return number(value, begin, end);
}

RecordValue otherValue(char* begin, char* end, char separator) {
  const std::string_view text(begin, static_cast<std::size_t>(end - begin));
  if (text.empty() || text == kNotAvailable) return {};
  const NumberShape shape = shapeOf(begin, end, separator);
  if (shape.end != nullptr) return longNumber(begin, end, shape);
  return {RecordValue::Kind::Text, 0, text};
}

}  // namespace

bool SeparatorVote::addTime(std::string_view text) {
  const std::size_t at = text.find_first_of(".,");
  if (at == std::string_view::npos) return false;
  points_ = commas_ = 0;
  ++(text[at] == ',' ? commas_ : points_);
  return true;
}

void SeparatorVote::addCell(std::string_view text) {
  for (const char separator : {'.', ','}) {
    const NumberShape shape = shapeOf(text.data(), text.data() + text.size(), separator);
    if (shape.end != nullptr && shape.separator != nullptr) ++(separator == ',' ? commas_ : points_);
  }
}

/// Most cells are short decimals, which need neither a check of their layout nor a general conversion.
RecordValue cellValue(char* const begin, char* const end, char separator) {
  char* at = begin;
  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  std::uint64_t all = 0;
  char* const whole = at;
  for (; at != end && isDigit(*at); ++at) all = all * 10 + static_cast<std::uint64_t>(*at - '0');
  auto count = at - whole;
  if (count == 0 || count > kExactDigits || (*whole == '0' && count > 1))
    return otherValue(begin, end, separator);
  std::size_t places = 0;
  if (at != end && *at == separator) {
    char* const decimals = at + 1;
    for (++at; at != end && isDigit(*at); ++at) all = all * 10 + static_cast<std::uint64_t>(*at - '0');
    places = static_cast<std::size_t>(at - decimals);
    count += at - decimals;
    if (places == 0 || count > kExactDigits || at != end) return otherValue(begin, end, separator);
    decimals[-1] = '.';
  }
  if (at != end) return otherValue(begin, end, separator);
  const double value = static_cast<double>(all) / kPowers[places];
  return number(negative ? -value : value, begin, end);
}

}  // namespace tarnlog
