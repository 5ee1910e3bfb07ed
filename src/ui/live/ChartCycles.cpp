#include "ui/live/ChartCycles.h"

#include <chrono>
#include <cmath>

namespace tarnlog {
namespace {

double millisecondsOf(const LocalDateTime& date) {
  using namespace std::chrono;
  const sys_days midnight = year_month_day(year(date.year), month(static_cast<unsigned>(date.month)),
                                           day(static_cast<unsigned>(date.day)));
  const auto time = midnight + hours(date.hour) + minutes(date.minute) + seconds(date.second);
  return static_cast<double>(duration_cast<milliseconds>(time.time_since_epoch()).count());
}

}  // namespace

void ChartCycles::begin() {
  const bool first = !std::exchange(running_, true);
  if (!first && ended_) ended_();
  if (clock_ == nullptr) return;
  moment_ += age();
  began_ = clock_->milliseconds();
  if (!first) return;
  firstDate_ = clock_->now();
  firstMoment_ = moment_;
}

double ChartCycles::age() const {
  return clock_ == nullptr || !began_ ? 0 : millisecondsBetween(*began_, clock_->milliseconds());
}

bool ChartCycles::wallClockAgrees() const {
  constexpr double kApart = 2000;  // it tells whole seconds
  if (clock_ == nullptr || !began_) return false;
  const double passed = millisecondsOf(clock_->now()) - millisecondsOf(firstDate_);
  return std::abs(passed - (moment_ + age() - firstMoment_)) < kApart;
}

}  // namespace tarnlog
