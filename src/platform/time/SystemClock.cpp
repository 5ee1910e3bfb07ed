#include "platform/time/SystemClock.h"

#include <chrono>
#include <ctime>

namespace tarnlog {
namespace {

using namespace std::chrono;

std::tm localTime() {
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  return local;
}

}  // namespace

Milliseconds SystemClock::milliseconds() const { return static_cast<Milliseconds>(microseconds() / 1000); }

LocalDateTime SystemClock::now() const {
  const std::tm local = localTime();
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::int64_t SystemClock::microseconds() const {
  return duration_cast<std::chrono::microseconds>(steady_clock::now().time_since_epoch()).count();
}

std::int64_t SystemClock::utcNanoseconds() const {
  return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

/// The system tells the sum of both; summer time is an hour nearly everywhere.
ZoneOffset SystemClock::zoneOffset() const {
  constexpr int kSummerMinutes = 60;
  const std::tm local = localTime();
  const int summer = local.tm_isdst > 0 ? kSummerMinutes : 0;
  const int all = static_cast<int>(local.tm_gmtoff / 60);
  return {static_cast<std::int16_t>(all - summer), static_cast<std::int16_t>(summer)};
}

std::optional<std::int64_t> utcOfLocal(const LocalDateTime& time) {
  std::tm local{};
  local.tm_year = time.year - 1900;
  local.tm_mon = time.month - 1;
  local.tm_mday = time.day;
  local.tm_hour = time.hour;
  local.tm_min = time.minute;
  local.tm_sec = time.second;
  local.tm_isdst = -1;  // whichever held then
  const std::time_t seconds = std::mktime(&local);
  if (seconds == -1) return std::nullopt;
  return nanoseconds(std::chrono::seconds(seconds)).count();
}

}  // namespace tarnlog
