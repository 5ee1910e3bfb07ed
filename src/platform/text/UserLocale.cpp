#include "platform/text/UserLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <cstddef>

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
  std::string_view info(nl_item item) const {
    return locale_ == nullptr ? std::string_view() : nl_langinfo_l(item, locale_);
  }

 private:
  locale_t locale_;
};

const char* fieldFor(char conversion) {
  switch (conversion) {
    case 'd':
    case 'e':
      return "dd";
    case 'm':
      return "mm";
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
    if (format[i] != '%' || i + 1 == format.size()) {
      pattern.push_back(format[i]);
      continue;
    }
    ++i;
    while (i + 1 < format.size() && (format[i] == '-' || format[i] == 'E' || format[i] == 'O')) ++i;
    pattern.append(fieldFor(format[i]));
  }
  while (!pattern.empty() && pattern.back() == ' ') pattern.pop_back();
  return pattern;
}

}  // namespace

char separatorOf(std::string_view pattern, char fallback) {
  const std::size_t at = pattern.find_first_of("/-.:");
  return at == std::string_view::npos ? fallback : pattern[at];
}

UserLocale systemLocale() {
  const EnvironmentLocale environment;
  UserLocale locale;
  // A separator of several bytes would not fit a cell's single code; such locales read "." as well.
  if (const auto radix = environment.info(RADIXCHAR); radix.size() == 1)
    locale.decimalSeparator = radix.front();
  if (const auto date = patternOf(environment.info(D_FMT)); !date.empty()) locale.shortDatePattern = date;
  if (const auto time = patternOf(environment.info(T_FMT)); !time.empty()) locale.timePattern = time;
  locale.dateSeparator = separatorOf(locale.shortDatePattern, '/');
  locale.timeSeparator = separatorOf(locale.timePattern, ':');
  return locale;
}

}  // namespace tarnlog
