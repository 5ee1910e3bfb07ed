#include "ui/review/TimeTicks.h"

#include <algorithm>
#include <cmath>

#include "platform/plotting/AxisTicks.h"
#include "platform/plotting/TimeGrid.h"
#include "platform/text/Numbers.h"

namespace tarnlog {
namespace {

constexpr double kMillisecond = 0.001;
constexpr double kDay = 86400;

double stepOf(const TimeSpan& span, int atMost) {
  const double step = timeStep(span.length() / kMillisecond, atMost) * kMillisecond;
  if (step > kMillisecond && step <= kDay) return step;
  return ticksFor({span.from, span.till}, atMost).step;
}

}  // namespace

std::string timeText(double seconds, double step, char decimalSeparator) {
  const double length = std::abs(seconds);
  const std::string sign = seconds < 0 ? "-" : "";
  if (step >= kMillisecond) {
    const double unit =
        step >= 1 ? 1 : kMillisecond * std::pow(10, std::floor(std::log10(step * 1000) + 1e-9));
    const double rounded = std::round(length / unit) * unit;
    return (rounded == 0 ? "" : sign) + durationText(rounded / kMillisecond, decimalSeparator);
  }
  std::string text = sign;
  appendFixed(text, length, static_cast<int>(std::clamp(-std::floor(std::log10(step) + 1e-9), 0.0, 9.0)),
              decimalSeparator);
  return text + " s";
}

std::vector<TimeTick> timeTicks(const TimeSpan& span, int atMost, char decimalSeparator) {
  std::vector<TimeTick> ticks;
  if (!(span.length() > 0) || atMost < 1) return ticks;
  const double step = stepOf(span, atMost);
  const double slack = 1e-9 * span.length();
  const double first = std::ceil((span.from - slack) / step);
  for (int i = 0; i <= atMost; ++i) {  // counted: so large times may be that one more is the same
    const double time = (first + i) * step;
    if (time > span.till + slack) break;
    ticks.push_back({time, timeText(time, step, decimalSeparator)});
  }
  return ticks;
}

}  // namespace tarnlog
