#pragma once

#include "platform/time/Clock.h"

namespace tarnlog::test {

/// A clock stepped by hand. The local time moves with it, within the hours of one day.
class SteppedClock : public Clock {
 public:
  explicit SteppedClock(Milliseconds start = 1'000'000, LocalDateTime local = {2026, 11, 16, 19, 5, 7})
      : microseconds_(start * std::int64_t{1000}), start_(microseconds_), local_(local) {}

  Milliseconds milliseconds() const override { return static_cast<Milliseconds>(microseconds_ / 1000); }
  LocalDateTime now() const override {
    LocalDateTime time = local_;
    const int seconds = time.second + static_cast<int>((microseconds_ - start_) / 1'000'000);
    time.second = seconds % 60;
    const int minutes = time.minute + seconds / 60;
    time.minute = minutes % 60;
    time.hour = (time.hour + minutes / 60) % 24;
    return time;
  }
  std::int64_t microseconds() const override { return microseconds_; }
  std::int64_t utcNanoseconds() const override {
    return kUtcAtStart + (microseconds_ - start_) * 1000 + set_;
  }
  ZoneOffset zoneOffset() const override { return {60, 0}; }

  void step(Milliseconds milliseconds) { stepMicroseconds(std::int64_t{milliseconds} * 1000); }
  void stepMicroseconds(std::int64_t microseconds) { microseconds_ += microseconds; }
  /// Somebody sets the wall clock.
  void setUtcBy(std::int64_t nanoseconds) { set_ += nanoseconds; }
  void stepLocal(int seconds) { local_.second += seconds; }

 private:
  static constexpr std::int64_t kUtcAtStart = 1'794'852'307'000'000'000;  // 2026-11-16 18:05:07

  std::int64_t microseconds_;
  std::int64_t start_;
  LocalDateTime local_;
  std::int64_t set_ = 0;  ///< by which the wall clock was set
};

}  // namespace tarnlog::test
