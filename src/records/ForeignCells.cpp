#include "records/ForeignCells.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <utility>

namespace tarnlog {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// Takes a number of at most so many digits off the text.
std::optional<int> takeDigits(std::string_view& text, std::size_t most) {
  std::size_t length = 0;
  int value = 0;
  for (; length < most && length < text.size() && isDigit(text[length]); ++length)
    value = value * 10 + (text[length] - '0');
  text.remove_prefix(length);
  return length == 0 ? std::nullopt : std::optional(value);
}

bool takeOneOf(std::string_view& text, std::string_view characters) {
  if (text.empty() || characters.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

/// "2026-11-16", "16.11.2026", "16/11/2026"; of month and day where the second number can be no month.
std::optional<std::chrono::sys_days> takeDate(std::string_view& text) {
  std::array<int, 3> numbers{};
  char separator = 0;
  for (int& number : numbers) {
    if (&number == &numbers[1] && !text.empty()) separator = text.front();
    if (&number != &numbers.front() && !takeOneOf(text, {&separator, 1})) return std::nullopt;
    const auto taken = takeDigits(text, 4);
    if (!taken) return std::nullopt;
    number = *taken;
  }
  auto [year, month, day] = numbers;
  if (year <= 31) std::swap(year, day);
  if (month > 12) std::swap(month, day);
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  const bool isSeparator = separator == '-' || separator == '/' || separator == '.';
  if (!isSeparator || year < 1000 || !date.ok()) return std::nullopt;
  return std::chrono::sys_days(date);
}

/// "19:05", "19:05:08.13"
std::optional<double> takeClock(std::string_view& text) {
  const auto hour = takeDigits(text, 2);
  if (!hour || *hour > 24 || !takeOneOf(text, ":")) return std::nullopt;
  const auto minute = takeDigits(text, 2);
  if (!minute || *minute > 59) return std::nullopt;
  double seconds = *hour * 3600.0 + *minute * 60.0;
  if (!takeOneOf(text, ":")) return seconds;
  const auto second = takeDigits(text, 2);
  if (!second || *second > 60) return std::nullopt;
  seconds += *second;
  if (!takeOneOf(text, ".,")) return seconds;
  double digit = 0.1;
  for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1), digit /= 10)
    seconds += digit * (text.front() - '0');
  return seconds;
}

/// "Z", "+01:00"
bool isZone(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return isDigit(c) || c == 'Z' || c == '+' || c == '-' || c == ':'; });
}

}  // namespace

bool ForeignCells::isBlankHere(char c) const { return c != separator_ && isBlank(c); }

std::span<const std::span<char>> ForeignCells::split(char* begin, char* const end) {
  cells_.clear();
  unclosed_ = false;
  if (separator_ == ' ') begin = std::find_if_not(begin, end, isBlank);
  for (;;) {
    char* const next = takeCell(begin, end);
    if (next == end || cells_.size() > kMostRecordColumns) return cells_;
    begin = next + 1;
    if (separator_ != ' ') continue;
    begin = std::find_if_not(begin, end, isBlank);
    if (begin == end) return cells_;
  }
}

/// Returns the separator behind it.
char* ForeignCells::takeCell(char* begin, char* const end) {
  const auto blank = [this](char c) { return isBlankHere(c); };
  begin = std::find_if_not(begin, end, blank);
  if (begin != end && *begin == '"') return takeQuoted(begin + 1, end);
  char* const next = std::find(begin, end, separator_);
  char* last = next;
  while (last != begin && blank(last[-1])) --last;
  cells_.emplace_back(begin, last);
  return next;
}

/// From behind the quote on. What stands behind the one that closes it belongs to the cell, too.
char* ForeignCells::takeQuoted(char* const begin, char* const end) {
  char* to = begin;
  char* at = begin;
  for (; at != end; ++at) {
    if (*at == '"' && (at + 1 == end || at[1] != '"')) break;
    if (*at == '"') ++at;
    *to++ = *at;
  }
  unclosed_ = unclosed_ || at == end;
  char* const next = std::find(at, end, separator_);
  char* last = next;
  while (last != at && isBlankHere(last[-1])) --last;
  if (last - at > 1) {
    unclosed_ = unclosed_ || std::find(begin, to, '\n') != to;
    to = std::copy(at + 1, last, to);
  }
  cells_.emplace_back(begin, to);
  return next;
}

std::optional<double> foreignNumber(std::string_view cell, char decimal) {
  cell = trimmed(cell);
  if (cell.starts_with('+')) cell.remove_prefix(1);
  std::array<char, 64> text{};
  if (cell.empty() || cell.size() > text.size()) return std::nullopt;
  char* const end = std::copy(cell.begin(), cell.end(), text.begin());
  if (decimal != '.') {
    if (std::find(text.begin(), end, '.') != end) return std::nullopt;
    std::replace(text.begin(), end, decimal, '.');
  }
  double value = 0;
  const auto [at, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || at != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<ForeignMoment> foreignMoment(std::string_view cell) {
  cell = trimmed(cell);
  ForeignMoment moment;
  std::string_view rest = cell;
  if (const auto date = takeDate(rest)) {
    moment.hasDate = true;
    moment.seconds = static_cast<double>(date->time_since_epoch().count()) * 86400;
    if (rest.empty()) return moment;
    if (!takeOneOf(rest, "T _;")) return std::nullopt;
    rest = trimmed(rest);
  } else {
    rest = cell;
  }
  const auto clock = takeClock(rest);
  if (!clock || !isZone(rest)) return std::nullopt;
  moment.seconds += *clock;
  return moment;
}

ForeignHeading foreignHeading(std::string_view text) {
  text = trimmed(text);
  const char close = text.empty() ? ' ' : text.back();
  const std::size_t open = close == ']' ? text.rfind('[') : close == ')' ? text.rfind('(') : text.npos;
  if (open == text.npos || open == 0) return {std::string(text), {}};
  return {std::string(trimmed(text.substr(0, open))),
          std::string(text.substr(open + 1, text.size() - open - 2))};
}

std::optional<double> secondsOf(std::string_view unit) {
  constexpr std::array<std::pair<std::string_view, double>, 12> kUnits = {{{"s", 1},
                                                                           {"sec", 1},
                                                                           {"seconds", 1},
                                                                           {"ms", 1e-3},
                                                                           {"msec", 1e-3},
                                                                           {"us", 1e-6},
                                                                           {"\xC2\xB5s", 1e-6},
                                                                           {"\xCE\xBCs", 1e-6},
                                                                           {"ns", 1e-9},
                                                                           {"min", 60},
                                                                           {"h", 3600},
                                                                           {"d", 86400}}};
  const auto* const found =
      std::find_if(kUnits.begin(), kUnits.end(), [&](const auto& each) { return each.first == unit; });
  return found == kUnits.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tarnlog
