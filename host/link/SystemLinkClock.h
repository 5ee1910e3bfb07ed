#pragma once

#include "host/link/LinkClock.h"

namespace tarnlog::host {

/// The system's monotonic clock. Makes the timer slack of the thread that creates it as small as it can be:
/// the usual 50 microseconds would be lost once for every answer.
class SystemLinkClock : public LinkClock {
 public:
  SystemLinkClock();
  Moment now() const override;

 protected:
  void sleepUntil(Moment moment) override;
};

}  // namespace tarnlog::host
