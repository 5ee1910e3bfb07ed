#pragma once

#include <string>

#include "platform/text/UserLocale.h"

/// Numbers and times of records, as people write them.
namespace tarnlog {

/// A number among others that spread over `range`: as many decimals as tell ten thousandths of it apart, no
/// trailing zeros. Empty for NaN.
std::string figureText(double value, double range, const UserLocale& locale);
/// "12.34 s", "1:02.5 min", "-1:00:02 h": to the millisecond. Empty for NaN.
std::string secondsText(double seconds, const UserLocale& locale);

}  // namespace tarnlog
