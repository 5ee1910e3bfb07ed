#pragma once

#include "platform/time/Timer.h"

namespace tarnlog::test {

/// A timer that ticks when the test says so, and only while it is enabled.
class ManualTimer : public Timer {
 public:
  void setInterval(int milliseconds) override { interval = milliseconds; }
  void setEnabled(bool enabled) override { enabled_ = enabled; }
  bool enabled() const override { return enabled_; }

  /// False when the timer was off.
  bool fire() {
    if (!enabled_) return false;
    tick();
    return true;
  }

  int interval = 0;

 private:
  bool enabled_ = false;
};

}  // namespace tarnlog::test
