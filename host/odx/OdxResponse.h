#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/odx/OdxLayer.h"
#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Told for each data item that is left out: its name and why.
using OdxLeftOut = std::function<void(const std::string& name, const std::string& reason)>;

/// The data items of a positive response, structures taken apart ("Wheel / Speed"). Names are unique.
std::vector<DataDescription> readOdxResponse(const OdxLayer& layer, XmlElement response,
                                             const OdxLeftOut& leftOut);

}  // namespace tarnlog::host
