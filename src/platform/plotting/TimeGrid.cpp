#include "platform/plotting/TimeGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

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

constexpr double kNearlyFits = 0.05;  ///< of the span

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

double timeStep(double span, int atMost) {
  for (const std::int64_t step : kSteps)
    if (span / static_cast<double>(step) <= atMost) return static_cast<double>(step);
  return std::numeric_limits<double>::infinity();
}

std::span<const TimeGridLine> TimeGrid::lines(const TimeLine& times, double first, double last, int atMost) {
  lines_.clear();
  const std::int64_t newest = times.end() - 1;
  const auto oldest = std::max(static_cast<std::int64_t>(first), times.firstKnown());
  const auto latest = std::min(static_cast<std::int64_t>(last), newest);
  if (oldest > latest || atMost < 1 || !(times.usualStep() > 0)) return {};
  const double now = times.momentOf(newest);
  const double span = times.momentOf(latest) - times.momentOf(oldest);
  step_ = std::clamp(step_, timeStep(span * (1 - kNearlyFits), atMost),
                     timeStep(span * (1 + kNearlyFits), atMost));
  const double least = std::max(std::ceil((now - times.momentOf(latest)) / step_), 1.0) * step_;
  const double most = now - times.momentOf(oldest);
  for (double ago = least; ago <= most; ago += step_)
    if (const auto point = times.pointAt(now - ago)) lines_.push_back({*point, ago});
  return lines_;
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
