#include "platform/plotting/TimeGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tarnlog {
namespace {

constexpr std::int64_t kSecond = 1000;
constexpr std::int64_t kMinute = 60 * kSecond;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;

constexpr std::int64_t kSteps[] = {1,
                                   2,
                                   5,
                                   10,
                                   20,
                                   50,
                                   100,
                                   200,
                                   500,
                                   kSecond,
                                   2 * kSecond,
                                   5 * kSecond,
                                   10 * kSecond,
                                   15 * kSecond,
                                   30 * kSecond,
                                   kMinute,
                                   2 * kMinute,
                                   5 * kMinute,
                                   10 * kMinute,
                                   15 * kMinute,
                                   30 * kMinute,
                                   kHour,
                                   2 * kHour,
                                   3 * kHour,
                                   6 * kHour,
                                   12 * kHour,
                                   kDay};

/// The shortest step of which at most so many go into the span; 0 when it is longer than all.
double stepFor(double span, int atMost) {
  for (const std::int64_t step : kSteps)
    if (span / static_cast<double>(step) <= atMost) return static_cast<double>(step);
  return 0;
}

std::string twoParts(std::int64_t large, std::int64_t small, const char* unit) {
  std::string text = std::to_string(large);
  if (small != 0) text += (small < 10 ? ":0" : ":") + std::to_string(small);
  return text + unit;
}

}  // namespace

void timeGrid(const TimeLine& times, double first, double last, int atMost,
              std::vector<TimeGridLine>& lines) {
  lines.clear();
  const std::int64_t newest = times.end() - 1;
  if (!times.knows(newest) || atMost < 1 || !(times.usualStep() > 0)) return;
  auto oldest = std::max<std::int64_t>(static_cast<std::int64_t>(first), 0);
  while (oldest < newest && !times.knows(oldest)) ++oldest;
  const auto latest = std::clamp(static_cast<std::int64_t>(last), oldest, newest);
  const double now = times.momentOf(newest);
  const double step = stepFor(times.momentOf(latest) - times.momentOf(oldest), atMost);
  if (!(step > 0)) return;
  const double most = now - times.momentOf(oldest);
  for (double ago = std::max(std::ceil((now - times.momentOf(latest)) / step), 1.0) * step; ago <= most;
       ago += step)
    if (const auto point = times.pointAt(now - ago)) lines.push_back({*point, ago});
}

std::string durationText(double milliseconds, char decimalSeparator) {
  const auto whole = static_cast<std::int64_t>(std::llround(milliseconds));
  if (whole < kMinute || whole % kSecond != 0) {
    std::string text = std::to_string(whole / kSecond);
    if (const std::int64_t rest = whole % kSecond; rest != 0) {
      std::string digits = std::to_string(kSecond + rest).substr(1);
      digits.erase(digits.find_last_not_of('0') + 1);
      text += decimalSeparator + digits;
    }
    return text + " s";
  }
  if (whole < kHour) return twoParts(whole / kMinute, whole % kMinute / kSecond, " min");
  return twoParts(whole / kHour, whole % kHour / kMinute, " h");
}

}  // namespace tarnlog
