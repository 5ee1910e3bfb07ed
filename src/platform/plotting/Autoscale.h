#pragma once

#include "platform/plotting/AxisTicks.h"

namespace tarnlog {

/// The range of an axis that follows its points without jitter: it grows at once when they leave it, and
/// shrinks only when they have needed much less for a while. When it changes, its ends come to stand on round
/// values, at least a twentieth of the points' span beyond them; until then points may come up to its ends.
class Autoscale {
 public:
  /// Takes the lowest and the highest value kept; says whether the range has changed. Values that are not
  /// finite, or lowest > highest (no points), leave the range as it is.
  bool follow(double lowest, double highest);
  const AxisRange& range() const { return range_; }
  void reset();

 private:
  static constexpr int kPatience = 60;  ///< calls; two seconds at 30 pictures a second

  AxisRange range_;
  bool settled_ = false;
  int roomy_ = 0;  ///< consecutive calls in which the range was too wide
};

}  // namespace tarnlog
