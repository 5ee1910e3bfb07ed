#pragma once

#include <string>
#include <string_view>

namespace tarnlog {

/// How the user writes numbers and dates. A value handed to whoever formats; nothing asks the system by
/// itself. The patterns are those of `formatDateTime`.
struct UserLocale {
  char decimalSeparator = '.';
  char dateSeparator = '/';
  char timeSeparator = ':';
  std::string shortDatePattern = "m/d/yyyy";
  std::string timePattern = "h:Nn:ss";
};

/// What stands between the first two fields of a pattern.
char separatorOf(std::string_view pattern, char fallback);

/// The locale of this process's environment (LC_ALL, LC_NUMERIC, LC_TIME, LANG). Does not change the global
/// locale.
UserLocale systemLocale();

}  // namespace tarnlog
