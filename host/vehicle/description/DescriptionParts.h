#pragma once

#include "host/service/Timing.h"
#include "host/vehicle/description/JsonPlace.h"
#include "host/vehicle/description/VehicleDescription.h"

/// The parts that a description is read in.
namespace tarnlog::host {

inline constexpr std::int64_t kLongestWait = 3600000;  // milliseconds
inline constexpr std::int64_t kUsualTimeout = 200;
inline constexpr std::int64_t kUsualPendingTimeout = timing::kP2Star.count();

DataDescription readData(const JsonPlace& place);

/// `vehicle` has its ECUs already.
SimulationDescription readSimulation(const JsonPlace& place, const VehicleDescription& vehicle,
                                     const CompanionFiles& files);

}  // namespace tarnlog::host
