#include "ui/review/RowSteps.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tarnlog {
namespace {

constexpr std::int64_t kLooks = 255;
constexpr double kPauseSteps = 3;
constexpr double kShortestPause = 0.2;  ///< seconds

}  // namespace

double usualStep(const TableGroup& group) {
  const std::int64_t steps = group.rows() - 1;
  if (steps < 1) return 0;
  std::array<double, kLooks> lengths;
  const std::int64_t looks = std::min(steps, kLooks);
  for (std::int64_t i = 0; i < looks; ++i) {
    const std::int64_t row = i * steps / looks;
    lengths[static_cast<std::size_t>(i)] = group.times[row + 1] - group.times[row];
  }
  const auto middle = lengths.begin() + looks / 2;
  std::nth_element(lengths.begin(), middle, lengths.begin() + looks);
  return *middle;
}

double longestStep(double usual) { return std::max(kPauseSteps * usual, kShortestPause); }

}  // namespace tarnlog
