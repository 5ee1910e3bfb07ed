#pragma once

#include <string>

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

/// The locale of this process's environment (LC_ALL, LC_NUMERIC, LC_TIME, LANG). Does not change the global
/// locale.
UserLocale systemLocale();

}  // namespace tarnlog
