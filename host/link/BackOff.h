#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>

#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// Keeps attempts apart that fail one after another: a quarter of a second at first, each time twice as long,
/// two seconds at most, so that a stop is never far away. The first attempt never waits.
class BackOff {
 public:
  explicit BackOff(LinkClock& clock) : clock_(clock) {}

  /// Waits until the next attempt is due.
  void wait(const std::function<void()>& idleHook) const {
    if (delay_ > 0) clock_.waitUntil(failed_ + delay_, idleHook);
  }
  /// When the next attempt is due, in microseconds of the clock.
  std::int64_t due() const { return delay_ > 0 ? failed_ + delay_ : clock_.microseconds(); }
  void failed() {
    failed_ = clock_.microseconds();
    delay_ = std::clamp(delay_ * 2, kShortest, kLongest);
  }
  void succeeded() { delay_ = 0; }

 private:
  static constexpr std::int64_t kShortest = 250'000;  // microseconds
  static constexpr std::int64_t kLongest = 2'000'000;

  LinkClock& clock_;
  std::int64_t failed_ = 0;
  std::int64_t delay_ = 0;
};

}  // namespace tarnlog::host
