#pragma once

#include <string_view>

#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Sets the interval of a request: "ECU/REQUEST=MS", with the names of the description and 0 to 3,600,000 ms.
/// TarnError for what is not written so, or names no request.
void setInterval(VehicleDescription& vehicle, std::string_view text);

}  // namespace tarnlog::host
