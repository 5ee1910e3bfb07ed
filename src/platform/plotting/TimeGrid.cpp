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

/// Minutes or seconds behind something larger.
std::string twoDigits(std::int64_t part) { return (part < 10 ? ":0" : ":") + std::to_string(part); }

std::string fraction(std::int64_t milliseconds, char decimalSeparator) {
  if (milliseconds == 0) return {};
  std::string digits = std::to_string(kSecond + milliseconds);
  digits.erase(digits.find_last_not_of('0') + 1);
  digits[0] = decimalSeparator;
  return digits;
}

}  // namespace

void timeGrid(const TimeLine& times, double first, double last, int atMost,
              std::vector<TimeGridLine>& lines) {
  lines.clear();
  const std::int64_t newest = times.end() - 1;
  const auto oldest = std::max(static_cast<std::int64_t>(first), times.firstKnown());
  const auto latest = std::min(static_cast<std::int64_t>(last), newest);
  if (oldest > latest || atMost < 1 || !(times.usualStep() > 0)) return;
  const double now = times.momentOf(newest);
  const double step = stepFor(times.momentOf(latest) - times.momentOf(oldest), atMost);
  if (!(step > 0)) return;
  const double most = now - times.momentOf(oldest);
  for (double ago = std::max(std::ceil((now - times.momentOf(latest)) / step), 1.0) * step; ago <= most;
       ago += step)
    if (const auto point = times.pointAt(now - ago)) lines.push_back({*point, ago});
}

std::string durationText(double milliseconds, char decimalSeparator) {
  const std::int64_t whole = std::llround(milliseconds);
  const std::string rest = fraction(whole % kSecond, decimalSeparator);
  if (whole < kMinute) return std::to_string(whole / kSecond) + rest + " s";
  const std::string seconds = whole % kMinute == 0 ? "" : twoDigits(whole % kMinute / kSecond) + rest;
  if (whole < kHour) return std::to_string(whole / kMinute) + seconds + " min";
  const std::string minutes = whole % kHour == 0 ? "" : twoDigits(whole % kHour / kMinute);
  return std::to_string(whole / kHour) + minutes + seconds + " h";
}

}  // namespace tarnlog
