#include "host/link/SystemLinkClock.h"

#include <poll.h>
#include <sys/prctl.h>

#include <chrono>

namespace tarnlog::host {
namespace {

std::int64_t nanoseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

}  // namespace

SystemLinkClock::SystemLinkClock() { prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL); }

std::int64_t SystemLinkClock::microseconds() const { return nanoseconds() / 1000; }

void SystemLinkClock::sleepUntil(std::int64_t moment) {
  constexpr std::int64_t kSecond = 1000000000;
  const std::int64_t left = moment * 1000 - nanoseconds();
  if (left <= 0) return;
  const timespec time{static_cast<time_t>(left / kSecond), static_cast<long>(left % kSecond)};
  // A signal ends the sleep early; the caller looks at the clock again.
  ppoll(nullptr, 0, &time, nullptr);
}

}  // namespace tarnlog::host
