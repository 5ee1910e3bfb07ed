#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/plotting/PointSeries.h"

namespace tarnlog {

/// When the points of a time chart came, and where points failed to come. Moments are milliseconds since any
/// beginning and do not go back; one that does makes those before it unknown, because no time at all is
/// better than a wrong one.
class TimeLine {
 public:
  /// A pause in the coming of points: longer than three usual steps, and than what a busy machine causes.
  struct Pause {
    std::int64_t before = 0;  ///< the first point after it
    double length = 0;        ///< milliseconds
  };

  void setCapacity(std::int32_t points) { moments_.setCapacity(points); }
  void append(double moment);
  void clear();
  void dropBefore(std::int64_t point) { moments_.dropBefore(point); }

  std::int64_t end() const { return moments_.end(); }
  /// The first point whose moment is known; end() where none is.
  std::int64_t firstKnown() const { return std::max(known_, moments_.begin()); }
  bool knows(std::int64_t point) const { return point >= firstKnown() && point < end(); }
  /// Of a point that it knows.
  double momentOf(std::int64_t point) const { return moments_[point]; }
  /// Between two points when nothing is wrong; 0 while too few are known to tell.
  double usualStep() const { return usual_; }
  /// In the order of their points.
  std::span<const Pause> pauses() const { return pauses_; }
  /// Which point came then, with the fraction of the way to the next one; none outside of what is known and
  /// within a pause.
  std::optional<double> pointAt(double moment) const;

 private:
  static constexpr std::size_t kSteps = 7;

  void learn(double step);
  void narrow(double moment, std::int64_t& low, std::int64_t& high) const;

  PointSeries moments_;
  std::int64_t known_ = 0;  ///< moments before this point are unknown
  std::vector<Pause> pauses_;
  std::array<double, kSteps> steps_{};  ///< the last ones
  std::size_t learnt_ = 0;
  double usual_ = 0;
};

}  // namespace tarnlog
