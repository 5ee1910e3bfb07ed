#pragma once

#include <array>
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
  std::array<std::string, 12> months{"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
  std::array<std::string, 12> shortMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<std::string, 7> days{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                  "Thursday", "Friday", "Saturday"};
  std::array<std::string, 7> shortDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
};

/// What stands between the fields of a pattern, its words apart.
char separatorOf(std::string_view pattern, char fallback);
/// Text as a pattern that renders it: letters of patterns and quotes are quoted.
std::string literalPattern(std::string_view text);
/// Without the blanks, commas and brackets that fields which a pattern lacks have left at its ends.
std::string trimmedPattern(std::string_view pattern);

/// The locale of this process's environment (LC_ALL, LC_NUMERIC, LC_TIME, LANG). Does not change the global
/// locale.
UserLocale systemLocale();

}  // namespace tarnlog
