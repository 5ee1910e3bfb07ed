#pragma once

#include "platform/time/Clock.h"

namespace tarnlog {

/// The system's monotonic clock and its local time.
class SystemClock : public Clock {
 public:
  Milliseconds milliseconds() const override;
  LocalDateTime now() const override;
  std::int64_t microseconds() const override;
  std::int64_t utcNanoseconds() const override;
  ZoneOffset zoneOffset() const override;
};

}  // namespace tarnlog
