#include "host/link/LinkClock.h"

#include <algorithm>

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {

constexpr auto kIdleInterval = 20ms;

}  // namespace

void LinkClock::waitUntil(Moment moment, const std::function<void()>& idleHook) {
  for (Moment time = now(); time < moment; time = now()) {
    if (idleHook && time >= nextIdle_) {
      idleHook();
      nextIdle_ = now() + kIdleInterval;
      continue;
    }
    sleepUntil(idleHook ? std::min(moment, nextIdle_) : moment);
  }
}

}  // namespace tarnlog::host
