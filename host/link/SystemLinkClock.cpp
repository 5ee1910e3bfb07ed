#include "host/link/SystemLinkClock.h"

#include <poll.h>
#include <sys/prctl.h>

#include <chrono>

namespace tarnlog::host {
namespace {

using std::chrono::nanoseconds;
using std::chrono::seconds;

nanoseconds sinceZero() { return std::chrono::steady_clock::now().time_since_epoch(); }

}  // namespace

SystemLinkClock::SystemLinkClock() { prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL); }

Moment SystemLinkClock::now() const { return std::chrono::duration_cast<Moment>(sinceZero()); }

void SystemLinkClock::sleepUntil(Moment moment) {
  const nanoseconds left = moment - sinceZero();
  if (left <= nanoseconds::zero()) return;
  const timespec time{static_cast<time_t>(left / seconds{1}), static_cast<long>((left % seconds{1}).count())};
  // A signal ends the sleep early; the caller looks at the clock again.
  ppoll(nullptr, 0, &time, nullptr);
}

}  // namespace tarnlog::host
