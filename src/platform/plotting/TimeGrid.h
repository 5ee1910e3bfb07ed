#pragma once

#include <string>
#include <vector>

#include "platform/plotting/TimeLine.h"

namespace tarnlog {

/// A line of a time chart's grid: where a whole time before the newest point stands.
struct TimeGridLine {
  double point = 0;
  double ago = 0;  ///< milliseconds
};

/// The lines for points `first` to `last`, with at most `atMost` steps between them; the newest comes first.
/// A step is a time that people count in: 1, 2 or 5 times a power of ten below a second, then seconds,
/// minutes and hours as clocks have them. `lines` is filled anew, so that it keeps its memory.
void timeGrid(const TimeLine& times, double first, double last, int atMost, std::vector<TimeGridLine>& lines);

/// "0.5 s", "10 s", "1 min", "1:30 min", "2 h", "2:30 h"; where seconds are not 0, as "1:00:45.3 h".
std::string durationText(double milliseconds, char decimalSeparator);

}  // namespace tarnlog
