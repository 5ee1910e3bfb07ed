#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace tarnlog {

/// Lowest and highest of some values; none when lowest > highest.
struct Extremes {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -std::numeric_limits<double>::infinity();
  bool any() const { return lowest <= highest; }
  /// Values that are not finite do not count.
  void add(double value);
  void add(const Extremes& other);
};

/// The last N points of a plot. Points are numbered from 0 in the order of arrival and keep their number
/// while older ones are dropped. Extremes of blocks are kept as points arrive, so that asking for those of a
/// long stretch costs a fraction of the points. Memory grows with the points, doubling until all N fit;
/// appending allocates nothing from then on.
class PlotHistory {
 public:
  static constexpr std::int32_t kMostPoints = 10'000'000;

  /// 1 to kMostPoints; what lies outside is limited. Forgets all points.
  void setCapacity(std::int32_t points);
  std::int32_t capacity() const { return capacity_; }
  /// Points that there is memory for now, at most `capacity`.
  std::int32_t held() const { return static_cast<std::int32_t>(y_.size()); }
  /// With x = false (the time chart) only y is kept.
  void setKeepsX(bool x);
  void append(double x, double y);
  void clear();

  std::int64_t begin() const { return end_ > capacity() ? end_ - capacity() : 0; }
  std::int64_t end() const { return end_; }
  /// `index` in begin() to end() - 1.
  double y(std::int64_t index) const { return y_[slot(index)]; }
  double x(std::int64_t index) const { return x_[slot(index)]; }
  /// The y values from `index` that stand behind one another in memory; not empty before end().
  std::span<const double> run(std::int64_t index) const;
  /// Of the y values from `first` to before `last`, inside what is kept.
  Extremes extremes(std::int64_t first, std::int64_t last) const;
  Extremes extremes() const { return extremes(begin(), end_); }
  Extremes extremesOfX() const;

 private:
  static constexpr std::int64_t kBlock = 64;

  /// While the memory grows no point is dropped, so that each stands at its number.
  std::size_t slot(std::int64_t index) const {
    return static_cast<std::size_t>(index % static_cast<std::int64_t>(y_.size()));
  }
  Extremes& block(std::int64_t index) {
    return blocks_[static_cast<std::size_t>(index / kBlock) % blocks_.size()];
  }

  void makeRoom(std::size_t points);

  std::int32_t capacity_ = 1;
  std::vector<double> y_ = std::vector<double>(1);
  std::vector<double> x_;  ///< empty for a time chart
  std::vector<Extremes> blocks_ = std::vector<Extremes>(3);
  std::int64_t end_ = 0;
};

}  // namespace tarnlog
