#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "host/vehicle/description/VehicleDescription.h"

namespace tarnlog::host {

/// Current data of an OBD car (service 01 of SAE J1979 / ISO 15031-5).
struct ObdPid {
  std::uint8_t number = 0;
  std::size_t bytes = 0;  ///< of data in the response, behind the PID
  std::vector<DataDescription> data;
};

/// Null for a PID that the table does not have. The table is obd-pids.json beside this file.
const ObdPid* findObdPid(std::uint8_t number);

extern const std::string_view kObdPidsText;

}  // namespace tarnlog::host
