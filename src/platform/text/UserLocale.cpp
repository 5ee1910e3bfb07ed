#include "platform/text/UserLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

/// The environment's locale for as long as it is asked; the global locale stays as it is.
class EnvironmentLocale {
 public:
  EnvironmentLocale() : locale_(newlocale(LC_NUMERIC_MASK | LC_TIME_MASK, "", nullptr)) {}
  ~EnvironmentLocale() {
    if (locale_ != nullptr) freelocale(locale_);
  }
  EnvironmentLocale(const EnvironmentLocale&) = delete;
  EnvironmentLocale& operator=(const EnvironmentLocale&) = delete;

  /// Empty when the environment names a locale that this system lacks.
  /// Texts of old locales are taken for windows-1252.
  std::string info(nl_item item) const {
    std::string text = locale_ == nullptr ? "" : nl_langinfo_l(item, locale_);
    return isUtf8(text) ? text : utf8FromWindows1252(text);
  }
  template <std::size_t count>
  void takeNames(std::array<std::string, count>& names, nl_item first) const {
    for (std::size_t i = 0; i < count; ++i)
      if (auto name = info(first + static_cast<nl_item>(i)); !name.empty()) names[i] = std::move(name);
  }

 private:
  locale_t locale_;
};

/// `plain`: without leading zeros.
const char* fieldFor(char conversion, bool plain) {
  switch (conversion) {
    case 'd':
      return plain ? "d" : "dd";
    case 'e':
      return "d";
    case 'm':
      return plain ? "m" : "mm";
    case 'b':
    case 'h':
      return "mmm";
    case 'B':
      return "mmmm";
    case 'a':
      return "ddd";
    case 'A':
      return "dddd";
    case 'y':
      return "yy";
    case 'Y':
      return "yyyy";
    case 'H':
    case 'k':
    case 'I':
    case 'l':
      return "hh";
    case 'M':
      return "nn";
    case 'S':
      return "ss";
    case 'D':
      return "mm/dd/yy";
    case 'F':
      return "yyyy-mm-dd";
    case 'T':
      return "hh:nn:ss";
    case 'R':
      return "hh:nn";
    default:
      return "";
  }
}

/// A strftime format as a pattern of formatDateTime; half-day hours become 24-hour ones. Empty when there is
/// no format.
std::string patternOf(std::string_view format) {
  std::string pattern;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const std::size_t field = std::min(format.find('%', i), format.size());
    pattern.append(literalPattern(format.substr(i, field - i)));
    i = format.find_first_not_of("-_0^#EO", field + 1);
    if (i == std::string_view::npos) break;
    pattern.append(fieldFor(format[i], format[i - 1] == '-'));
  }
  return trimmedPattern(pattern);
}

bool isFieldLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

}  // namespace

std::string literalPattern(std::string_view text) {
  std::string pattern;
  bool quoted = false;
  for (const char c : text) {
    if (std::exchange(quoted, isFieldLetter(c)) != quoted) pattern.push_back('\'');
    pattern.append(c == '\'' ? 2 : 1, c);
  }
  if (quoted) pattern.push_back('\'');
  return pattern;
}

std::string trimmedPattern(std::string_view pattern) {
  constexpr std::string_view kAround = " ,()";
  pattern.remove_prefix(std::min(pattern.find_first_not_of(kAround), pattern.size()));
  return std::string(pattern.substr(0, pattern.find_last_not_of(kAround) + 1));
}

char separatorOf(std::string_view pattern, char fallback) {
  bool quoted = false;
  for (const char c : pattern) {
    if (c == '\'') quoted = !quoted;
    if (!quoted && std::string_view("/-.:").find(c) != std::string_view::npos) return c;
  }
  return fallback;
}

UserLocale systemLocale() {
  const EnvironmentLocale environment;
  UserLocale locale;
  // A separator of several bytes would not fit a cell's single code; such locales read "." as well.
  if (const auto radix = environment.info(RADIXCHAR); radix.size() == 1)
    locale.decimalSeparator = radix.front();
  if (const auto date = patternOf(environment.info(D_FMT)); !date.empty()) locale.shortDatePattern = date;
  if (const auto time = patternOf(environment.info(T_FMT)); !time.empty()) locale.timePattern = time;
  environment.takeNames(locale.months, MON_1);
  environment.takeNames(locale.shortMonths, ABMON_1);
  environment.takeNames(locale.days, DAY_1);
  environment.takeNames(locale.shortDays, ABDAY_1);
  locale.dateSeparator = separatorOf(locale.shortDatePattern, '/');
  locale.timeSeparator = separatorOf(locale.timePattern, ':');
  return locale;
}

}  // namespace tarnlog
