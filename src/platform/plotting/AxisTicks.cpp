#include "platform/plotting/AxisTicks.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnlog {
namespace {

constexpr double kLargest = 1e300;  ///< leaves room to subtract ends and to add margins

AxisTicks multiplesOf(double step, const AxisRange& range) {
  // A mark that rounding puts just outside an end still belongs to it.
  const double slack = 1e-9;
  const double from = std::ceil(range.minimum / step - slack);
  const double to = std::floor(range.maximum / step + slack);
  AxisTicks ticks;
  ticks.step = step;
  ticks.first = from * step;
  ticks.count = static_cast<int>(std::clamp(to - from + 1, 0.0, 1000.0));
  ticks.decimals = static_cast<int>(std::clamp(-std::floor(std::log10(step) + slack), 0.0, 15.0));
  return ticks;
}

}  // namespace

AxisRange saneRange(double minimum, double maximum) {
  const auto finite = [](double value, double otherwise) {
    return std::isnan(value) ? otherwise : std::clamp(value, -kLargest, kLargest);
  };
  minimum = finite(minimum, 0);
  maximum = finite(maximum, minimum);
  if (minimum > maximum) std::swap(minimum, maximum);
  const double least = std::max({std::abs(minimum), std::abs(maximum), 1e-280}) * 1e-9;
  if (maximum - minimum >= least) return {minimum, maximum};
  const double half =
      minimum == 0 && maximum == 0 ? 0.5 : std::max(std::abs(minimum), std::abs(maximum)) / 10;
  return {minimum - half, maximum + half};
}

double AxisTicks::at(int index) const {
  const double value = first + step * index;
  return std::abs(value) < step / 2 ? 0 : value;
}

AxisTicks ticksFor(const AxisRange& range, int atMost) {
  const double wanted = range.span() / std::max(atMost, 1);
  const double power = std::pow(10, std::floor(std::log10(wanted)));
  AxisTicks ticks;
  for (const double factor : {1.0, 2.0, 5.0, 10.0, 20.0, 50.0}) {
    ticks = multiplesOf(power * factor, range);
    if (ticks.count <= std::max(atMost, 1)) break;
  }
  return ticks;
}

AxisTicks wholeTicksFor(const AxisRange& range, int atMost) {
  const AxisTicks whole = multiplesOf(1, range);
  return whole.count > std::max(atMost, 2) ? ticksFor(range, atMost) : whole;
}

}  // namespace tarnlog
