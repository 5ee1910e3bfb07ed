#pragma once

#include <chrono>
#include <functional>

namespace tarnlog::host {

/// A point of time: how long after the zero of the link clock.
using Moment = std::chrono::microseconds;

/// The time, and waiting. Links and time-outs know no other time.
class LinkClock {
 public:
  virtual ~LinkClock() = default;
  /// A clock that never goes back; its zero means nothing.
  virtual Moment now() const = 0;

  /// Returns as soon as `moment` has come, at once when it is over. Runs the hook at least every 20 ms of
  /// waiting, also when that time is made of many short waits.
  void waitUntil(Moment moment, const std::function<void()>& idleHook);

 protected:
  /// Sleeps without running anything.
  virtual void sleepUntil(Moment moment) = 0;

 private:
  Moment nextIdle_ = Moment::min();
};

}  // namespace tarnlog::host
