#pragma once

#include <cstdint>
#include <string>

#include "apps/tarn-record/Loudness.h"
#include "host/vehicle/Vehicle.h"
#include "samples/PollCosts.h"

namespace tarnlog::record {

struct PlanOptions {
  std::string vehicle;
  host::LinkOptions link;
  std::string config;
  std::int32_t seconds = 5;  ///< that are polled
  Loudness loudness = Loudness::Usual;
};

/// What the report tells, for people; `period` in seconds is the configuration's, 0 for every cycle.
std::string planText(const PollReport& report, std::int32_t period);

/// Polls what the configuration asks for, without recording, and tells how fast that is and what each request
/// costs. Raises BadInput and TarnErrors; BadInput, too, when no data come.
std::string plan(const PlanOptions& options);

}  // namespace tarnlog::record
