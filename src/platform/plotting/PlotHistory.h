#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/plotting/PointSeries.h"

namespace tarnlog {

/// The last N points of a plot: of a time chart y alone, of an X-Y graph both. Numbered and kept as
/// `PointSeries` says.
class PlotHistory {
 public:
  static constexpr std::int32_t kMostPoints = PointSeries::kMostPoints;

  void setCapacity(std::int32_t points);
  std::int32_t capacity() const { return y_.capacity(); }
  /// Forgets all points.
  void setKeepsX(bool x);
  void append(double x, double y);
  void clear();
  void dropBefore(std::int64_t index);

  std::int64_t begin() const { return y_.begin(); }
  std::int64_t end() const { return y_.end(); }
  bool has(std::int64_t index) const { return index >= begin() && index < end(); }
  /// `index` in begin() to end() - 1.
  double y(std::int64_t index) const { return y_[index]; }
  double x(std::int64_t index) const { return (*x_)[index]; }
  const PointSeries& ys() const { return y_; }
  std::span<const double> run(std::int64_t index) const { return y_.run(index); }
  /// Of the y values from `first` to before `last`, inside what is kept.
  Extremes extremes(std::int64_t first, std::int64_t last) const { return y_.extremes(first, last); }
  Extremes extremesOfX(std::int64_t first, std::int64_t last) const {
    return x_ ? x_->extremes(first, last) : Extremes();
  }

 private:
  PointSeries y_;
  std::optional<PointSeries> x_;
};

}  // namespace tarnlog
