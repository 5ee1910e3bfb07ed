#include "platform/plotting/Autoscale.h"

#include <cmath>

namespace tarnlog {
namespace {

constexpr double kMargin = 0.05;
constexpr int kRounding = 20;  ///< steps in the range, so that rounding adds little to the margin

AxisRange roundedAround(double lowest, double highest) {
  const AxisRange bare = saneRange(lowest, highest);
  const double margin = kMargin * bare.span();
  const AxisRange range = saneRange(bare.minimum - margin, bare.maximum + margin);
  const double step = ticksFor(range, kRounding).step;
  return saneRange(std::floor(range.minimum / step + 1e-9) * step,
                   std::ceil(range.maximum / step - 1e-9) * step);
}

}  // namespace

bool Autoscale::follow(double lowest, double highest) {
  if (!std::isfinite(lowest) || !std::isfinite(highest) || lowest > highest) return false;
  const AxisRange wanted = roundedAround(lowest, highest);
  const bool outside = lowest < range_.minimum || highest > range_.maximum;
  roomy_ = wanted.span() <= range_.span() / 2 ? roomy_ + 1 : 0;
  if (settled_ && !outside && roomy_ < kPatience) return false;
  const bool changed = !settled_ || wanted != range_;
  settled_ = true;
  roomy_ = 0;
  range_ = wanted;
  return changed;
}

void Autoscale::reset() { *this = Autoscale(); }

}  // namespace tarnlog
