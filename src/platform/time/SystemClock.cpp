#include "platform/time/SystemClock.h"

#include <chrono>
#include <ctime>

namespace tarnlog {

Milliseconds SystemClock::milliseconds() const {
  const auto time = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<Milliseconds>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

LocalDateTime SystemClock::now() const {
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace tarnlog
