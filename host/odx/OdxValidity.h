#pragma once

#include "host/odx/OdxLibrary.h"
#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Takes over which coded numbers of a data object are values (INTERNAL-CONSTR, and the limits of its only
/// scale where it is linear): the others become "not available", and the range shown is narrowed. `data` has
/// its field and computation. LeftOut when no number would be left.
void readOdxValidity(XmlElement dataObject, DataDescription& data);

/// Whether the data object has constraints that are not taken over: on physical values, or on texts and byte
/// fields.
bool hasOtherOdxConstraints(XmlElement dataObject, const DataDescription& data);

}  // namespace tarnlog::host
