#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/plotting/AxisTicks.h"

namespace tarnlog {

/// From values to pixels along an axis; the whole part of the result is the pixel's number.
class PixelScale {
 public:
  PixelScale() = default;
  /// The range's ends are the first and the last of so many pixels.
  PixelScale(const AxisRange& range, int pixels)
      : PixelScale((std::max(pixels, 1) - 1) / range.span(), -range.minimum, 0.5) {}
  /// The range's maximum is the first pixel: rows are counted downwards.
  static PixelScale downwards(const AxisRange& range, int pixels) {
    return {-(std::max(pixels, 1) - 1) / range.span(), -range.maximum, 0.5};
  }

  /// For any finite value; what is far outside stays outside, and is limited.
  double operator()(double value) const { return std::clamp(value * factor_ + offset_, -kFarAway, kFarAway); }

 private:
  static constexpr double kFarAway = 1e7;  ///< pixels; beyond, slopes no longer matter

  PixelScale(double factor, double shift, double middle)
      : factor_(factor), offset_(shift * factor + middle) {}

  double factor_ = 1;
  double offset_ = 0;
};

/// From the points of a time chart to its columns.
class ColumnScale {
 public:
  ColumnScale() = default;
  ColumnScale(int columns, double points) : perPoint_(columns / points), perColumn_(points / columns) {}

  double columnsPerPoint() const { return perPoint_; }
  std::int64_t columnOf(std::int64_t point) const {
    return static_cast<std::int64_t>(static_cast<double>(point) * perPoint_ + kSlack);
  }
  /// A point in this column or, when there is none, the one before it.
  std::int64_t pointIn(std::int64_t column) const {
    return static_cast<std::int64_t>(static_cast<double>(column) * perColumn_);
  }
  /// The first point that is not in a column before this one.
  std::int64_t firstFrom(std::int64_t column) const {
    return static_cast<std::int64_t>(std::ceil((static_cast<double>(column) - kSlack) * perColumn_));
  }

 private:
  static constexpr double kSlack = 1e-6;  ///< against the rounding of whole columns

  double perPoint_ = 1;
  double perColumn_ = 1;
};

}  // namespace tarnlog
