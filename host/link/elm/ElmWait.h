#pragma once

#include <algorithm>
#include <chrono>

#include "host/link/LinkClock.h"
#include "host/link/elm/ElmSetup.h"
#include "host/service/Timing.h"

namespace tarnlog::host {

/// How long one ECU takes for its answers, and so how long an adapter needs to wait for it. Most adapters
/// find that out themselves, or need not wait as they are told the number of frames; others wait their full
/// time behind each answer.
class ElmWait {
 public:
  /// The ECU answered after so long.
  void answered(Moment taken) {
    longest_ = std::max(longest_ - longest_ / kMemory, taken);
    ++answers_;
  }
  /// Then the adapter, which was told no number of frames and no shorter time, was waited for so long.
  void waited(Moment time) { wastes_ = time > kNoticed ? wastes_ + 1 : 0; }
  /// The ECU seemed silent, and answered when it was given more time.
  void wasTooShort() { margin_ *= 2; }

  /// In steps of the adapter's time-out; what adapters start with when too little is known.
  int steps() const {
    if (answers_ < kEnough) return kElmDefaultTimeout;
    const auto needed = std::max(kLeast, longest_ * 3 / 2 + margin_) / kElmTimeoutStep;
    return static_cast<int>(std::min<Moment::rep>(needed, kElmLongestTimeout));
  }
  /// An adapter that waits so many steps can do with less.
  bool isWasted(int steps) const {
    return wastes_ >= kEnough && steps - this->steps() > kNoticed / kElmTimeoutStep;
  }

 private:
  static constexpr Moment kNoticed = std::chrono::milliseconds(60);
  static constexpr int kEnough = 8;
  static constexpr int kMemory = 64;  ///< answers until one that took long is nearly forgotten
  /// Messages of one answer may come P2 apart.
  static constexpr Moment kLeast = timing::kP2 + std::chrono::milliseconds(10);

  Moment longest_{};
  Moment margin_ = std::chrono::milliseconds(16);
  int answers_ = 0;
  int wastes_ = 0;  ///< one after another
};

}  // namespace tarnlog::host
