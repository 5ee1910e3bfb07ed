#pragma once

#include <chrono>

#include "host/link/LinkClock.h"
#include "tests/support/SteppedClock.h"

namespace tarnlog::test {

/// A link clock on which waiting takes no time; a stepped clock may go along.
class ManualLinkClock : public host::LinkClock {
 public:
  explicit ManualLinkClock(SteppedClock* companion = nullptr) : companion_(companion) {}

  host::Moment now() const override { return now_; }
  void step(std::chrono::microseconds time) {
    using std::chrono::floor;
    using std::chrono::milliseconds;
    const auto passed = floor<milliseconds>(now_ + time) - floor<milliseconds>(now_);
    now_ += time;
    if (companion_ != nullptr) companion_->step(static_cast<Milliseconds>(passed.count()));
  }

 protected:
  void sleepUntil(host::Moment moment) override { step(moment - now_); }

 private:
  SteppedClock* companion_;
  host::Moment now_{};
};

}  // namespace tarnlog::test
