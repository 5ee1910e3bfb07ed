#pragma once

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/obd/OpeningPhase.h"

namespace tarnlog::host {

/// Asks a car which ECUs it has and which current data (service 01, SAE J1979 / ISO 15031-5) each of them
/// offers, tries them, and describes what the car gives: a request "PID 0C" for each PID, its data under
/// their usual names; a PID that is not in the table gives its bytes. An ECU that lists the car's VIN
/// (service 09) is asked for it. Nothing else is sent. The link stays open: not every adapter takes a second
/// connection at once. TarnError when the link fails again and again, or no ECU offers anything.
VehicleDescription scanObdVehicle(Link& link, LinkClock& clock, const PhaseHook& phase = {});

}  // namespace tarnlog::host
