#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/plotting/TimeLine.h"

namespace tarnlog {

/// A line of a time chart's grid: where a whole time before the newest point stands.
struct TimeGridLine {
  double point = 0;
  double ago = 0;  ///< milliseconds
};

/// Its steps are times that people count in: 1, 2 or 5 times a power of ten below a second, then seconds,
/// minutes and hours as clocks have them. A step stays while it nearly fits: the moments of points jitter,
/// and the lines would jump with them.
class TimeGrid {
 public:
  /// For points `first` to `last`, with about `atMost` steps between them; the newest comes first. Valid
  /// until the next call.
  std::span<const TimeGridLine> lines(const TimeLine& times, double first, double last, int atMost);

 private:
  double step_ = 0;  ///< milliseconds
  std::vector<TimeGridLine> lines_;
};

/// The shortest step, in milliseconds, of which at most so many go into the span; infinite when it is longer
/// than a day for each.
double timeStep(double span, int atMost);

/// "0.5 s", "10 s", "1 min", "1:30 min", "2 h", "2:30 h"; where seconds are not 0, as "1:00:45.3 h".
std::string durationText(double milliseconds, char decimalSeparator);

}  // namespace tarnlog
