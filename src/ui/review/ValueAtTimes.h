#pragma once

#include <cstdint>

#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// The number that a datum holds at times of the scene that are asked for in their order, such as those of
/// another record's rows. NaN before its first row and behind its last one.
class ValueAtTimes {
 public:
  ValueAtTimes(const ReviewScene& scene, const CurvePlace& place)
      : group_(scene.group(place)), numbers_(scene.column(place).numbers), offset_(scene.offset(place)) {}

  double operator()(double time);

 private:
  const TableGroup& group_;
  const NumberSeries& numbers_;
  double offset_;
  std::int64_t next_ = -1;  ///< the first row that is later
};

}  // namespace tarnlog
