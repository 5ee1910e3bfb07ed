#pragma once

#include <algorithm>
#include <chrono>
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
    if (delay_ > delay_.zero()) clock_.waitUntil(failed_ + delay_, idleHook);
  }
  /// When the next attempt is due.
  Moment due() const { return delay_ > delay_.zero() ? failed_ + delay_ : clock_.now(); }
  void failed() {
    failed_ = clock_.now();
    delay_ = std::clamp(delay_ * 2, kShortest, kLongest);
  }
  void succeeded() { delay_ = delay_.zero(); }

 private:
  static constexpr std::chrono::milliseconds kShortest{250};
  static constexpr std::chrono::milliseconds kLongest{2000};

  LinkClock& clock_;
  Moment failed_{};
  std::chrono::milliseconds delay_{};
};

}  // namespace tarnlog::host
