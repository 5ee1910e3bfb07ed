#include "records/RecordCell.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "platform/text/TakeUntil.h"

namespace tarnlog {

namespace {

/// As records have it, and as other programs write it.
constexpr std::array<std::string_view, 4> kNotAvailable = {"---", "NaN", "nan", "NAN"};

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
  if (text.empty() || std::find(kNotAvailable.begin(), kNotAvailable.end(), text) != kNotAvailable.end())
    return {};
  const NumberShape shape = shapeOf(begin, end, separator);
  if (shape.end != nullptr) return longNumber(begin, end, shape);
  return {RecordValue::Kind::Text, 0, text};
}

constexpr int kNoTerminator = -1;

/// Most cells are short decimals, which need neither a check of their layout nor a general conversion.
/// Returns where it ends, before the terminator or with the text; null when it is none.
char* shortDecimal(char* const begin, char* const end, int terminator, char separator, RecordValue& value) {
  char* at = begin;
  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  std::uint64_t all = 0;
  char* const whole = at;
  for (; at != end && isDigit(*at); ++at) all = all * 10 + static_cast<std::uint64_t>(*at - '0');
  auto count = at - whole;
  if (count == 0 || count > kExactDigits || (*whole == '0' && count > 1)) return nullptr;
  char* decimals = nullptr;
  if (at != end && *at == separator) {
    decimals = ++at;
    for (; at != end && isDigit(*at); ++at) all = all * 10 + static_cast<std::uint64_t>(*at - '0');
    count += at - decimals;
    if (at == decimals || count > kExactDigits) return nullptr;
  }
  if (at != end && static_cast<unsigned char>(*at) != terminator) return nullptr;
  auto exact = static_cast<double>(all);
  if (decimals != nullptr) {
    decimals[-1] = '.';
    exact /= kPowers[static_cast<std::size_t>(at - decimals)];
  }
  value = number(negative ? -exact : exact, begin, at);
  return at;
}

constexpr std::uint64_t kEach = 0x0101010101010101;  ///< byte of eight
constexpr std::uint64_t kZeros = kEach * '0';

/// Where a character stands first in eight bytes; 8 when it does not.
unsigned placeOf(std::uint64_t bytes, char character) {
  const std::uint64_t others = bytes ^ (kEach * static_cast<unsigned char>(character));
  return static_cast<unsigned>(std::countr_zero((others - kEach) & ~others & (kEach * 0x80))) / 8;
}

/// The lowest bytes, 0 to 7 of them.
std::uint64_t lowest(std::uint64_t bytes, unsigned count) {
  return bytes & ((std::uint64_t{1} << (8 * count)) - 1);
}

bool areDigits(std::uint64_t bytes) {
  constexpr std::uint64_t kHigh = kEach * 0xF0;
  return (bytes & kHigh) == kZeros && ((bytes + kEach * 6) & kHigh) == kZeros;
}

/// Of eight digits: of each two, each four, then all.
std::uint64_t numberOf(std::uint64_t digits) {
  constexpr std::uint64_t kPairs = 0x000000FF000000FF;
  digits -= kZeros;
  digits = digits * 10 + (digits >> 8);
  const std::uint64_t first = (digits & kPairs) * (100 + (std::uint64_t{1000000} << 32));
  const std::uint64_t second = (digits >> 16 & kPairs) * (1 + (std::uint64_t{10000} << 32));
  return (first + second) >> 32;
}

/// As `shortDecimal` before a TAB, of at most seven characters behind a sign: how many they are costs no
/// branch, which would be guessed wrong for most cells.
char* tinyDecimal(char* const begin, char* const end, char separator, RecordValue& value) {
  if (end - begin < 9 || std::endian::native != std::endian::little) return nullptr;
  const bool negative = *begin == '-';
  char* const whole = begin + (negative ? 1 : 0);
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, whole, sizeof bytes);
  const unsigned length = placeOf(bytes, '\t');
  const unsigned wholes = std::min(length, placeOf(bytes, separator));
  if (length > 7 || wholes == 0 || wholes + 1 == length || (*whole == '0' && wholes > 1)) return nullptr;
  const unsigned places = wholes == length ? 0 : length - wholes - 1;
  const std::uint64_t decimals = lowest(bytes >> (8 * wholes) >> 8, places);
  const std::uint64_t digits = lowest(bytes, wholes) | decimals << (8 * wholes);
  const unsigned lacking = 8 - wholes - places;
  const std::uint64_t padded = digits << (8 * lacking) | lowest(kZeros, lacking);
  if (!areDigits(padded)) return nullptr;
  const double exact = static_cast<double>(numberOf(padded)) / kPowers[places];
  if (places != 0 && separator != '.') whole[wholes] = '.';
  value = number(negative ? -exact : exact, begin, whole + length);
  return whole + length;
}

}  // namespace

bool SeparatorVote::addTime(std::string_view text) {
  SeparatorVote time;
  time.addCell(text);
  if (time.points_ + time.commas_ == 0) return false;
  *this = time;
  return true;
}

void SeparatorVote::addCell(std::string_view text) {
  for (const char separator : {'.', ','}) {
    const NumberShape shape = shapeOf(text.data(), text.data() + text.size(), separator);
    if (shape.end != nullptr && shape.separator != nullptr) ++(separator == ',' ? commas_ : points_);
  }
}

bool SeparatorVote::addRow(std::string_view line) {
  if (addTime(takeUntil(line, '\t'))) return true;
  while (!line.empty()) addCell(takeUntil(line, '\t'));
  return false;
}

RecordValue cellValue(char* const begin, char* const end, char separator) {
  RecordValue value;
  const char* const found = shortDecimal(begin, end, kNoTerminator, separator, value);
  return found != nullptr ? value : otherValue(begin, end, separator);
}

char* takeCell(char* const begin, char* const lineEnd, char separator, RecordValue& value) {
  char* at = tinyDecimal(begin, lineEnd, separator, value);
  if (at != nullptr) return at;
  at = shortDecimal(begin, lineEnd, '\t', separator, value);
  if (at != nullptr) return at;
  at = static_cast<char*>(std::memchr(begin, '\t', static_cast<std::size_t>(lineEnd - begin)));
  if (at == nullptr) at = lineEnd;
  value = otherValue(begin, at, separator);
  return at;
}

}  // namespace tarnlog
