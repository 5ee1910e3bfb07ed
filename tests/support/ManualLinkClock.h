#pragma once

#include <chrono>

#include "host/link/LinkClock.h"
#include "tests/support/SteppedClock.h"

namespace tarnlog::test {

/// A link clock on which waiting takes no time. With a stepped clock it is the same clock.
class ManualLinkClock : public host::LinkClock {
 public:
  explicit ManualLinkClock(SteppedClock* same = nullptr) : clock_(same != nullptr ? *same : own_) {}

  host::Moment now() const override { return host::Moment(clock_.microseconds()); }
  void step(std::chrono::microseconds time) { clock_.stepMicroseconds(time.count()); }

 protected:
  void sleepUntil(host::Moment moment) override { step(moment - now()); }

 private:
  SteppedClock own_{0};
  SteppedClock& clock_;
};

}  // namespace tarnlog::test
