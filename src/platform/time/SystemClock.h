#pragma once

#include "platform/time/Clock.h"

namespace tarnlog {

/// The system's monotonic milliseconds and its local time.
class SystemClock : public Clock {
 public:
  Milliseconds milliseconds() const override;
  LocalDateTime now() const override;
};

}  // namespace tarnlog
