#include "platform/text/DateText.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstddef>

namespace tarnlog {

namespace {

void appendPadded(std::string& out, int number, std::size_t digits) {
  const std::string text = std::to_string(number);
  if (text.size() < digits) out.append(digits - text.size(), '0');
  out.append(text);
}

/// 0 is Sunday. Of the Gregorian calendar.
std::size_t weekday(const LocalDateTime& time) {
  const std::chrono::year_month_day date(std::chrono::year(time.year),
                                         std::chrono::month(static_cast<unsigned>(time.month)),
                                         std::chrono::day(static_cast<unsigned>(time.day)));
  return std::chrono::weekday(std::chrono::sys_days(date)).c_encoding();
}

void appendDay(std::string& out, std::size_t length, const LocalDateTime& time, const UserLocale& locale) {
  if (length <= 2) return appendPadded(out, time.day, length);
  out.append((length == 3 ? locale.shortDays : locale.days)[weekday(time)]);
}

void appendMonth(std::string& out, std::size_t length, const LocalDateTime& time, const UserLocale& locale) {
  if (length <= 2) return appendPadded(out, time.month, length);
  out.append((length == 3 ? locale.shortMonths : locale.months)[static_cast<std::size_t>(time.month - 1)]);
}

/// Renders a run of one pattern letter; false when the letter stands for nothing.
bool appendField(std::string& out, char letter, std::size_t length, const LocalDateTime& time,
                 const UserLocale& locale) {
  switch (letter) {
    case 'd':
      appendDay(out, length, time, locale);
      return true;
    case 'm':
      appendMonth(out, length, time, locale);
      return true;
    case 'y':
      length > 2 ? appendPadded(out, time.year, 4) : appendPadded(out, time.year % 100, 2);
      return true;
    case 'h':
      appendPadded(out, time.hour, length);
      return true;
    case 'n':
      appendPadded(out, time.minute, 2);
      return true;
    case 's':
      appendPadded(out, time.second, 2);
      return true;
    default:
      return false;
  }
}

/// Copies a quoted text, or the quote that two quotes stand for. Returns where it ends.
std::size_t appendQuoted(std::string& out, std::string_view pattern, std::size_t quote) {
  const std::size_t end = std::min(pattern.find('\'', quote + 1), pattern.size());
  out.append(end == quote + 1 ? "'" : pattern.substr(quote + 1, end - quote - 1));
  return end + 1;
}

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

}  // namespace

std::string formatDateTime(const LocalDateTime& time, std::string_view pattern, const UserLocale& locale) {
  std::string out;
  for (std::size_t i = 0; i < pattern.size();) {
    const char letter = lower(pattern[i]);
    if (letter == '\'') {
      i = appendQuoted(out, pattern, i);
      continue;
    }
    std::size_t end = i + 1;
    while (end < pattern.size() && lower(pattern[end]) == letter) ++end;
    if (!appendField(out, letter, end - i, time, locale)) {
      end = i + 1;
      out.push_back(letter == '/' ? locale.dateSeparator : letter == ':' ? locale.timeSeparator : pattern[i]);
    }
    i = end;
  }
  return out;
}

std::string shortDateText(const LocalDateTime& time, const UserLocale& locale) {
  return formatDateTime(time, locale.shortDatePattern, locale);
}

std::string timeOfDayText(const LocalDateTime& time, const UserLocale& locale) {
  return formatDateTime(time, locale.timePattern, locale);
}

}  // namespace tarnlog
