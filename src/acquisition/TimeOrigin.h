#pragma once

#include <cstdint>

#include "platform/time/Clock.h"

namespace tarnlog {

/// The moment from which the times of a file count. The clock has 32 bits: a recording that is followed at
/// least every three weeks may run longer than they reach.
class TimeOrigin {
 public:
  /// Not explicit: any reading of the clock may be an origin.
  TimeOrigin(Milliseconds moment = 0) : known_(moment) {}

  /// The recording has come to `now`.
  void follow(Milliseconds now) {
    elapsed_ = millisecondsTo(now);
    known_ = now;
  }
  std::int64_t millisecondsTo(Milliseconds time) const {
    return elapsed_ + millisecondsBetween(known_, time);
  }

 private:
  Milliseconds known_;        ///< the moment followed up to
  std::int64_t elapsed_ = 0;  ///< up to it
};

}  // namespace tarnlog
