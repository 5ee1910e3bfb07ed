#pragma once

#include <string>
#include <string_view>

#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// Renders a date and time. Letters in any case: "d" day and "m" month without leading zero, "dd" and "mm"
/// with one, "ddd" and "mmm" their short names, "dddd" and "mmmm" their names, "yy" two-digit and "yyyy"
/// four-digit year, "h" hour without and "hh" hour (00-23) with leading zero, "nn" minutes, "ss" seconds; "/"
/// and ":" stand for the locale's date and time separators; what stands between single quotes, and anything
/// else, is copied, two single quotes as one.
std::string formatDateTime(const LocalDateTime& time, std::string_view pattern, const UserLocale& locale);

/// The user's short date and time of day.
std::string shortDateText(const LocalDateTime& time, const UserLocale& locale);
std::string timeOfDayText(const LocalDateTime& time, const UserLocale& locale);

}  // namespace tarnlog
