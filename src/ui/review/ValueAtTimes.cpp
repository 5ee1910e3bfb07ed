#include "ui/review/ValueAtTimes.h"

#include <cmath>
#include <limits>

namespace tarnlog {

/// Row by row while it is near, and by a search where it is not.
double ValueAtTimes::operator()(double time) {
  constexpr int kNear = 16;
  const double rounding = roundingOf(time, offset_);
  const double own = time - offset_ + rounding;
  if (next_ < 0) next_ = group_.firstFrom(own);
  for (int i = 0; i < kNear && next_ < group_.rows() && group_.times[next_] <= own; ++i) ++next_;
  if (next_ < group_.rows() && group_.times[next_] <= own)
    next_ = group_.firstFrom(std::nextafter(own, std::numeric_limits<double>::infinity()));
  const bool behind = next_ == group_.rows() && next_ != 0 && group_.times[next_ - 1] < own - 2 * rounding;
  return next_ == 0 || behind ? std::numeric_limits<double>::quiet_NaN() : numbers_[next_ - 1];
}

}  // namespace tarnlog
