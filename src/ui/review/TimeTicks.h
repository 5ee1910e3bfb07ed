#pragma once

#include <string>
#include <vector>

#include "records/RecordFigures.h"

namespace tarnlog {

/// A mark of a time axis.
struct TimeTick {
  double time = 0;  ///< seconds
  std::string text;
};

/// At whole times that people count in, at most so many.
std::vector<TimeTick> timeTicks(const TimeSpan& span, int atMost, char decimalSeparator);
/// A time as exactly as neighbours that are `step` seconds apart need it: "12.5 s", "1:30 min", "-2:30 h".
std::string timeText(double seconds, double step, char decimalSeparator);

}  // namespace tarnlog
