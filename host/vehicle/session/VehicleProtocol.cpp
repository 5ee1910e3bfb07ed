#include "host/vehicle/session/VehicleProtocol.h"

#include <string>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

void VehicleProtocol::initialiseAll() {
  begins_();
  // A copy: what the reports set off may finish the poll set.
  const std::vector<VehicleEcu*> ecus = ecus_;
  for (VehicleEcu* const ecu : ecus) {
    std::string error;
    try {
      ecu->initialise();
    } catch (const TarnError& failure) {
      error = failure.description();
    }
    report(*ecu, !error.empty(), {}, error);
  }
}

}  // namespace tarnlog::host
