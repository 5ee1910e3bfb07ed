#include "records/RecordDate.h"

#include <array>
#include <cstddef>

namespace tarnlog {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes a number of one or two digits off the text.
std::optional<int> takeNumber(std::string_view& text) {
  std::size_t length = 0;
  int value = 0;
  for (; length < 2 && length < text.size() && isDigit(text[length]); ++length)
    value = value * 10 + (text[length] - '0');
  text.remove_prefix(length);
  return length == 0 ? std::nullopt : std::optional(value);
}

/// Three numbers with one character between them.
std::optional<std::array<int, 3>> threeNumbers(std::string_view text) {
  std::array<int, 3> numbers{};
  for (int& number : numbers) {
    if (&number != &numbers.front()) {
      if (text.empty()) return std::nullopt;
      text.remove_prefix(1);
    }
    const auto taken = takeNumber(text);
    if (!taken) return std::nullopt;
    number = *taken;
  }
  return text.empty() ? std::optional(numbers) : std::nullopt;
}

std::optional<LocalDateTime> checked(const LocalDateTime& time) {
  const bool good = time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 &&
                    time.hour < 24 && time.minute < 60 && time.second < 61;
  return good ? std::optional(time) : std::nullopt;
}

/// Takes what the pattern has at the front of the text: "#" stands for a number. False when it is not there.
bool takePattern(std::string_view& text, std::string_view pattern, std::array<int, 6>& numbers) {
  std::size_t count = 0;
  for (const char c : pattern) {
    if (c == '#') {
      const auto number = takeNumber(text);
      if (!number) return false;
      numbers[count++] = *number;
    } else {
      if (text.empty() || text.front() != c) return false;
      text.remove_prefix(1);
    }
  }
  return true;
}

}  // namespace

std::optional<LocalDateTime> recordDate(std::string_view date, std::string_view time) {
  const auto days = threeNumbers(date);
  const auto hours = threeNumbers(time);
  if (!days || !hours) return std::nullopt;
  return checked({2000 + (*days)[2], (*days)[1], (*days)[0], (*hours)[0], (*hours)[1], (*hours)[2]});
}

std::optional<LocalDateTime> dateInName(std::string_view name) {
  std::optional<LocalDateTime> found;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (!isDigit(name[at]) || (at != 0 && isDigit(name[at - 1]))) continue;
    for (const char* const pattern : {"#-#-#_#h#mn#", "#-#-#__#h#mn#"}) {
      std::string_view rest = name.substr(at);
      std::array<int, 6> n{};
      if (takePattern(rest, pattern, n)) found = checked({2000 + n[2], n[1], n[0], n[3], n[4], n[5]});
    }
  }
  return found;
}

LocalDateTime dateOf(std::chrono::sys_seconds time) {
  using namespace std::chrono;
  const sys_days day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count())};
}

}  // namespace tarnlog
