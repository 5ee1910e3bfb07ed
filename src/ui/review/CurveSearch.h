#pragma once

#include <cstdint>
#include <optional>

#include "ui/review/CurveColumns.h"
#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// Looks for moments of the chosen curve, from the readout on.
class CurveSearch {
 public:
  enum class What : std::uint8_t { Rising, Falling, Change, LargestStep };

  struct Answer {
    std::optional<double> time;   ///< of the scene; none: there is no such moment
    double number = 0;            ///< of that row, NaN for a text
    std::optional<double> other;  ///< where there is none: the nearest in the other direction
    RecordFigures figures;        ///< of the whole curve, which tell why there is none
  };

  CurveSearch(const ReviewScene& scene, CurveColumns& columns) : scene_(scene), columns_(columns) {}

  /// Whether this can be looked for: steps and crossings are between numbers. False while no curve is chosen.
  bool possible(What what) const;
  /// The next moment, or with `back` the one before. The largest step is looked for in `measured`.
  Answer find(What what, double level, bool back) const;
  /// Where it begins to look.
  double start(bool back) const;

 private:
  struct Aim {
    What what;
    double level;
    double from;  ///< where it begins, in the scene's time
  };

  const ReviewCurve* curve() const;
  /// `at`: and a row that is as old as that.
  std::optional<std::int64_t> row(const ReviewCurve& curve, const Aim& aim, bool back, bool at) const;

  const ReviewScene& scene_;
  CurveColumns& columns_;
};

}  // namespace tarnlog
