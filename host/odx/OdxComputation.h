#pragma once

#include "host/odx/OdxLibrary.h"
#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Takes over the computation (COMPU-METHOD) of a data object: identical, linear and text table. `data` has
/// its field already. LeftOut for any other: a wrong number is worse than none. False when texts of long
/// ranges of values are not taken over: such values are shown as numbers.
bool readOdxComputation(XmlElement dataObject, DataDescription& data);

}  // namespace tarnlog::host
