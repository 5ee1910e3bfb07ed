#include "host/link/LinkClock.h"

#include <algorithm>

namespace tarnlog::host {
namespace {

constexpr std::int64_t kIdleInterval = 20000;

}  // namespace

void LinkClock::waitUntil(std::int64_t moment, const std::function<void()>& idleHook) {
  for (std::int64_t now = microseconds(); now < moment; now = microseconds()) {
    if (idleHook && now >= nextIdle_) {
      idleHook();
      nextIdle_ = microseconds() + kIdleInterval;
      continue;
    }
    sleepUntil(idleHook ? std::min(moment, nextIdle_) : moment);
  }
}

}  // namespace tarnlog::host
