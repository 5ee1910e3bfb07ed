#include "platform/text/DateText.h"

#include <cctype>
#include <cstddef>

namespace tarnlog {

namespace {

void appendPadded(std::string& out, int number, std::size_t digits) {
  const std::string text = std::to_string(number);
  if (text.size() < digits) out.append(digits - text.size(), '0');
  out.append(text);
}

/// Renders a run of one pattern letter; false when the letter stands for nothing.
bool appendField(std::string& out, char letter, std::size_t length, const LocalDateTime& time) {
  switch (letter) {
    case 'd':
      appendPadded(out, time.day, length);
      return true;
    case 'm':
      appendPadded(out, time.month, length);
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

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

}  // namespace

std::string formatDateTime(const LocalDateTime& time, std::string_view pattern, const UserLocale& locale) {
  std::string out;
  for (std::size_t i = 0; i < pattern.size();) {
    const char letter = lower(pattern[i]);
    std::size_t end = i + 1;
    while (end < pattern.size() && lower(pattern[end]) == letter) ++end;
    if (!appendField(out, letter, end - i, time)) {
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
