#pragma once

#include <cstdint>
#include <functional>
#include <limits>

namespace tarnlog::host {

/// Microseconds, and waiting for them. Links and time-outs know no other time.
class LinkClock {
 public:
  virtual ~LinkClock() = default;
  /// A clock that never goes back; its zero means nothing.
  virtual std::int64_t microseconds() const = 0;

  /// Returns as soon as `moment` has come, at once when it is over. Runs the hook at least every 20 ms of
  /// waiting, also when that time is made of many short waits.
  void waitUntil(std::int64_t moment, const std::function<void()>& idleHook);

 protected:
  /// Sleeps without running anything.
  virtual void sleepUntil(std::int64_t moment) = 0;

 private:
  std::int64_t nextIdle_ = std::numeric_limits<std::int64_t>::min();
};

}  // namespace tarnlog::host
