#pragma once

#include <string>
#include <vector>

#include "host/odx/PdxArchive.h"
#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

struct OdxImport {
  VehicleDescription vehicle;
  std::vector<std::string> notes;    ///< what the user should look at: addresses that are missing, variants
  std::vector<std::string> leftOut;  ///< "ECU / service: why", in document order
};

/// Turns the read services (01, 09, 1A, 21, 22) of the ECU variants in a container into a vehicle
/// description. TarnError when there is nothing that could be read.
OdxImport importOdx(const std::vector<PdxEntry>& entries, const std::string& vehicleName);

}  // namespace tarnlog::host
