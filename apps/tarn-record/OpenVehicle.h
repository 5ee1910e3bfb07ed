#pragma once

#include <memory>
#include <string>

#include "apps/tarn-record/Loudness.h"
#include "host/vehicle/Vehicle.h"

namespace tarnlog::record {

/// `host::openVehicle` with the system's locale. On standard error it says when a car is asked what it
/// offers, which can take a minute, and what it lists but does not give; nothing of that when it is to be
/// quiet, and how it is reached when it is not.
std::unique_ptr<host::OpenedVehicle> openVehicle(const std::string& path, FileSystem& files,
                                                 host::LinkClock& clock, host::Link::IdleHook idleHook,
                                                 const host::LinkOptions& link,
                                                 Loudness loudness = Loudness::Usual);

}  // namespace tarnlog::record
