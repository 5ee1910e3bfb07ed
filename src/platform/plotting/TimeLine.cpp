#include "platform/plotting/TimeLine.h"

#include <algorithm>

namespace tarnlog {
namespace {

constexpr double kUsualSteps = 3;
constexpr double kLeastPause = 200;  ///< milliseconds

}  // namespace

void TimeLine::append(double moment) {
  const std::int64_t point = end();
  if (point > 0) {
    const double step = moment - moments_[point - 1];
    if (step < 0) {
      known_ = point;
      learnt_ = 0;
      usual_ = 0;
    } else {
      if (usual_ > 0 && step > kUsualSteps * usual_ && step >= kLeastPause) pauses_.push_back({point, step});
      learn(step);
    }
  }
  moments_.append(moment);
  const std::int64_t first = moments_.begin();
  if (!pauses_.empty() && pauses_.front().before <= first) pauses_.erase(pauses_.begin());
}

void TimeLine::clear() {
  const std::int32_t capacity = moments_.capacity();
  *this = TimeLine();
  setCapacity(capacity);
}

/// The median of the last steps, so that a new rate is the usual one after four of them.
void TimeLine::learn(double step) {
  steps_[learnt_++ % kSteps] = step;
  const std::size_t count = std::min(learnt_, kSteps);
  if (count < 3) return;
  std::array<double, kSteps> sorted = steps_;
  const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(count / 2);
  std::nth_element(sorted.begin(), middle, sorted.begin() + static_cast<std::ptrdiff_t>(count));
  usual_ = *middle;
}

/// At a steady rate the point is near to where the usual step says.
void TimeLine::narrow(double moment, std::int64_t& low, std::int64_t& high) const {
  constexpr std::int64_t kNear = 8;
  if (!(usual_ > 0)) return;
  const double back = (moments_[high - 1] - moment) / usual_;
  const auto guess = high - 1 - static_cast<std::int64_t>(std::min(back, static_cast<double>(high - low)));
  const std::int64_t before = std::max(guess - kNear, low);
  const std::int64_t behind = std::min(guess + kNear, high - 1);
  if (moments_[before] <= moment) low = before;
  if (moments_[behind] > moment) high = behind;
}

std::optional<double> TimeLine::pointAt(double moment) const {
  std::int64_t low = firstKnown();
  std::int64_t high = end();
  if (low >= high || moment < moments_[low] || moment > moments_[high - 1]) return std::nullopt;
  narrow(moment, low, high);
  while (high - low > 1) {
    const std::int64_t middle = low + (high - low) / 2;
    (moments_[middle] <= moment ? low : high) = middle;
  }
  const double past = moment - moments_[low];
  if (past <= 0) return static_cast<double>(low);
  const auto pause =
      std::lower_bound(pauses_.begin(), pauses_.end(), high,
                       [](const Pause& each, std::int64_t point) { return each.before < point; });
  if (pause != pauses_.end() && pause->before == high) return std::nullopt;
  return static_cast<double>(low) + past / (moments_[high] - moments_[low]);
}

}  // namespace tarnlog
