#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "platform/time/Clock.h"

/// When a recording began, as text and XML records tell it: in local time, to the second.
namespace tarnlog {

/// Day, month and year of two digits, hour, minute and second, whatever stands between them. None when it is
/// no date.
std::optional<LocalDateTime> recordDate(std::string_view date, std::string_view time);

/// From the name that a record or event file was given: "event1_16-11-26_19h05mn07.txt". None when it has
/// another one.
std::optional<LocalDateTime> dateInName(std::string_view name);

/// Date and time of a clock that shows these seconds since 1970.
LocalDateTime dateOf(std::chrono::sys_seconds time);

}  // namespace tarnlog
