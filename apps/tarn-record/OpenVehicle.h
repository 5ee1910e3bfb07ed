#pragma once

#include <memory>
#include <string>

#include "host/vehicle/Vehicle.h"

namespace tarnlog::record {

/// `host::openVehicle` with the system's locale. On standard error it says when a car is asked what it
/// offers, which can take a minute, and what it lists but does not give.
std::unique_ptr<host::OpenedVehicle> openVehicle(const std::string& path, FileSystem& files,
                                                 host::LinkClock& clock, host::Link::IdleHook idleHook,
                                                 const host::LinkOptions& link);

}  // namespace tarnlog::record
