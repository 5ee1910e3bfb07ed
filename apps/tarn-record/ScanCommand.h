#pragma once

#include <string>

#include "apps/tarn-record/Loudness.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/FileSystem.h"

namespace tarnlog::record {

struct ScanOptions {
  host::LinkOptions link;
  std::string output;  ///< the vehicle description, replaced when it exists
  Loudness loudness = Loudness::Usual;
};

/// Asks a car what it offers (OBD service 01), writes that as a vehicle description and gives the report: the
/// ECUs found and how much each offers. TarnError when no ECU answers.
std::string scanCar(FileSystem& files, const ScanOptions& options);

}  // namespace tarnlog::record
