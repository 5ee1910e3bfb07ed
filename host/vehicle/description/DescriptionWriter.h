#pragma once

#include <string>

#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// A description as the text of its file, without its simulation: what `parseVehicleDescription` reads back
/// as the same. What the reader would assume anyway is left out.
std::string writeVehicleDescription(const VehicleDescription& vehicle);

}  // namespace tarnlog::host
