#pragma once

#include <cstdint>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// The timing of an acquisition, derived from its configuration.
struct RecordingPlan {
  std::int32_t samplePeriod = 0;  ///< milliseconds between rows; 0 = every polling cycle
  std::int32_t preTriggerPoints = 0;
  std::int32_t postTriggerPoints = 0;
};

/// Rows that a time covers: whole periods, plus one when more than a tenth of a period remains; two a second
/// when the period is 0. The sign of `seconds` does not count. All in seconds.
std::int64_t pointsFor(std::int32_t seconds, std::int32_t period);

/// Raises error 1, source "TarnAcq.StartReadingData", when a time does not fit the 32-bit millisecond clock
/// (about 24 days), or the pre-trigger history of `columns` data would need more memory than is sensible.
RecordingPlan planRecording(const oTarnParameters& parameters, std::int32_t columns);

}  // namespace tarnlog
