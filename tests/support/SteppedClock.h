#pragma once

#include "platform/time/Clock.h"

namespace tarnlog::test {

/// A clock stepped by hand. The local time moves with the milliseconds, within the hours of one day.
class SteppedClock : public Clock {
 public:
  explicit SteppedClock(Milliseconds start = 1'000'000, LocalDateTime local = {2026, 11, 16, 19, 5, 7})
      : milliseconds_(start), start_(start), local_(local) {}

  Milliseconds milliseconds() const override { return milliseconds_; }
  LocalDateTime now() const override {
    LocalDateTime time = local_;
    const int seconds = time.second + static_cast<int>((milliseconds_ - start_) / 1000);
    time.second = seconds % 60;
    const int minutes = time.minute + seconds / 60;
    time.minute = minutes % 60;
    time.hour = (time.hour + minutes / 60) % 24;
    return time;
  }

  std::int64_t microseconds() const override { return microseconds_; }
  std::int64_t utcNanoseconds() const override { return kUtcAtStart + microseconds_ * 1000 + utcStep_; }
  ZoneOffset zoneOffset() const override { return {60, 0}; }

  void step(Milliseconds milliseconds) {
    milliseconds_ += milliseconds;
    microseconds_ += std::int64_t{milliseconds} * 1000;
  }
  /// Somebody sets the wall clock.
  void setUtcBy(std::int64_t nanoseconds) { utcStep_ += nanoseconds; }

 private:
  static constexpr std::int64_t kUtcAtStart = 1'763'316'307'000'000'000;

  Milliseconds milliseconds_;
  std::int64_t microseconds_ = milliseconds_ * std::int64_t{1000};
  std::int64_t utcStep_ = 0;
  Milliseconds start_;
  LocalDateTime local_;
};

}  // namespace tarnlog::test
