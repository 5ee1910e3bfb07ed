#pragma once

#include <chrono>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

/// Breaks off the waiting of a link when somebody wants to end, but not before half a second of it: what
/// comes soon anyway is still taken.
class StopPatience {
 public:
  /// Both must outlive it.
  StopPatience(const Link& link, const LinkClock& clock) : link_(link), clock_(clock) {}

  /// Something new is done from now on.
  void begin() { begun_ = clock_.now(); }
  /// To be called while waiting; a TarnError breaks it off.
  void check() const {
    if (clock_.now() > begun_ + kPatience && link_.stopAsked())
      throw TarnError(1, "Link", "stopped while an answer was awaited");
  }

 private:
  static constexpr std::chrono::milliseconds kPatience{500};

  const Link& link_;
  const LinkClock& clock_;
  Moment begun_{};
};

}  // namespace tarnlog::host
