#include "acquisition/RecordingPlan.h"

#include <cstdlib>
#include <limits>
#include <string>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kMaxSeconds = std::numeric_limits<std::int32_t>::max() / 1000;
constexpr std::int64_t kMaxHistoryCells = 50'000'000;  // some 1.6 GB

[[noreturn]] void refuse(const std::string& description) {
  throw TarnError(1, "TarnAcq.StartReadingData", description);
}

void requireFits(const char* what, std::int64_t seconds) {
  if (seconds > kMaxSeconds)
    refuse(std::string(what) + " of " + std::to_string(seconds) + " s is too long, at most " +
           std::to_string(kMaxSeconds) + " s are possible");
}

}  // namespace

std::int64_t pointsFor(std::int32_t seconds, std::int32_t period) {
  const std::int64_t time = std::llabs(std::int64_t{seconds});
  if (period == 0) return 2 * time;
  const std::int64_t rest = time % period;
  return time / period + (10 * rest > period ? 1 : 0);
}

RecordingPlan planRecording(const oTarnParameters& parameters, std::int32_t columns) {
  const oTarnTrigger& start = *parameters.startTrigger;
  const oTarnTrigger& stop = *parameters.stopTrigger;
  if (parameters.recordingPeriod < 0) refuse("Recording period below 0 s");
  requireFits("Recording period", parameters.recordingPeriod);
  requireFits("Start pre-trigger", std::llabs(std::int64_t{start.prepost}));
  requireFits("Stop post-trigger", std::llabs(std::int64_t{stop.prepost}));
  if (stop.typeTrigger == oTarnTrigger::kTime) requireFits("Stop time", stop.timeSeconde);

  const std::int64_t history = start.prepost < 0 ? pointsFor(start.prepost, parameters.recordingPeriod) : 0;
  if ((history + 1) * columns > kMaxHistoryCells)
    refuse("Pre-trigger of " + std::to_string(history) + " points of " + std::to_string(columns) +
           " data needs too much memory");
  return {parameters.recordingPeriod * 1000, static_cast<std::int32_t>(history),
          static_cast<std::int32_t>(pointsFor(stop.prepost, parameters.recordingPeriod))};
}

}  // namespace tarnlog
