#pragma once

#include <cstdint>

#include "host/link/LinkClock.h"
#include "tests/support/SteppedClock.h"

namespace tarnlog::test {

/// A link clock on which waiting takes no time; a stepped clock may go along.
class ManualLinkClock : public host::LinkClock {
 public:
  explicit ManualLinkClock(SteppedClock* companion = nullptr) : companion_(companion) {}

  std::int64_t microseconds() const override { return now_; }
  void step(std::int64_t microseconds) {
    const std::int64_t before = now_ / 1000;
    now_ += microseconds;
    if (companion_ != nullptr) companion_->step(static_cast<Milliseconds>(now_ / 1000 - before));
  }

 protected:
  void sleepUntil(std::int64_t moment) override { step(moment - now_); }

 private:
  SteppedClock* companion_;
  std::int64_t now_ = 0;
};

}  // namespace tarnlog::test
