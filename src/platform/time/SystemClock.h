#pragma once

#include <cstdint>
#include <optional>

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

/// Nanoseconds since 1970 UTC of a moment of local time in this system's zone; none when it is no date.
std::optional<std::int64_t> utcOfLocal(const LocalDateTime& time);

}  // namespace tarnlog
