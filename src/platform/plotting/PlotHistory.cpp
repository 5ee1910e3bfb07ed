#include "platform/plotting/PlotHistory.h"

#include <algorithm>
#include <cmath>

namespace tarnlog {

namespace {

constexpr std::int32_t kFirstPoints = 1024;

}  // namespace

void Extremes::add(double value) {
  if (!std::isfinite(value)) return;
  lowest = std::min(lowest, value);
  highest = std::max(highest, value);
}

void Extremes::add(const Extremes& other) {
  lowest = std::min(lowest, other.lowest);
  highest = std::max(highest, other.highest);
}

void PlotHistory::setCapacity(std::int32_t points) {
  capacity_ = std::clamp(points, 1, kMostPoints);
  const bool keepsX = !x_.empty();
  y_ = {};
  x_ = keepsX ? std::vector<double>(1) : std::vector<double>();
  blocks_ = {};
  end_ = 0;
  makeRoom(static_cast<std::size_t>(std::min(capacity_, kFirstPoints)));
}

void PlotHistory::setKeepsX(bool x) {
  x_.resize(x ? 1 : 0);
  clear();
}

/// Exactly that much, where `resize` alone might take twice as much at the end.
void PlotHistory::makeRoom(std::size_t points) {
  y_.reserve(points);
  y_.resize(points);
  if (!x_.empty()) {
    x_.reserve(points);
    x_.resize(points);
  }
  blocks_.resize(points / kBlock + 3);  // both ends may stand in a block that is only partly kept
}

void PlotHistory::append(double x, double y) {
  if (end_ == held() && held() < capacity_)
    makeRoom(std::min(2 * y_.size(), static_cast<std::size_t>(capacity_)));
  Extremes& extremes = block(end_);
  if (end_ % kBlock == 0) extremes = {};
  extremes.add(y);
  y_[slot(end_)] = y;
  if (!x_.empty()) x_[slot(end_)] = x;
  ++end_;
}

void PlotHistory::clear() { setCapacity(capacity_); }

std::span<const double> PlotHistory::run(std::int64_t index) const {
  const std::size_t from = slot(index);
  return {y_.data() + from, std::min(y_.size() - from, static_cast<std::size_t>(end_ - index))};
}

Extremes PlotHistory::extremes(std::int64_t first, std::int64_t last) const {
  first = std::max(first, begin());
  last = std::min(last, end_);
  Extremes result;
  while (first < last) {
    if (first % kBlock == 0 && first + kBlock <= last) {
      result.add(blocks_[static_cast<std::size_t>(first / kBlock) % blocks_.size()]);
      first += kBlock;
    } else {
      result.add(y(first++));
    }
  }
  return result;
}

Extremes PlotHistory::extremesOfX() const {
  Extremes result;
  if (x_.empty()) return result;
  for (std::int64_t index = begin(); index < end_; ++index) result.add(x(index));
  return result;
}

}  // namespace tarnlog
