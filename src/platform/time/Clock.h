#pragma once

#include <cstdint>

namespace tarnlog {

/// A reading of the system's millisecond clock: 32 bits that wrap after 49.7 days.
using Milliseconds = std::uint32_t;

/// Signed distance from `earlier` to `later` in 32-bit two's complement, so that the clock's wrap passes
/// unnoticed.
constexpr std::int32_t millisecondsBetween(Milliseconds earlier, Milliseconds later) {
  return static_cast<std::int32_t>(later - earlier);
}

/// A moment of local time: month 1 to 12, hour 0 to 23.
struct LocalDateTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// How far local time is ahead of UTC: the zone's offset and what summer time adds to it, in minutes.
struct ZoneOffset {
  std::int16_t zone = 0;
  std::int16_t summer = 0;
};

/// The only source of time: the system's in programs, stepped by hand in tests.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Milliseconds milliseconds() const = 0;
  virtual LocalDateTime now() const = 0;
  /// The same clock as `milliseconds`, which are these divided by 1000: it never goes back or jumps, and its
  /// zero means nothing.
  virtual std::int64_t microseconds() const = 0;
  /// The wall clock: nanoseconds since 1970 UTC. It jumps when somebody sets it.
  virtual std::int64_t utcNanoseconds() const = 0;
  virtual ZoneOffset zoneOffset() const = 0;
};

}  // namespace tarnlog
