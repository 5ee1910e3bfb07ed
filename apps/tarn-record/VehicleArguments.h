#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "apps/tarn-record/OfflineVehicle.h"
#include "host/vehicle/Vehicle.h"

/// The options that several commands have, for a vehicle and what is recorded of it.
namespace tarnlog::record {

/// --vehicle and --link.
void addVehicle(CLI::App& command, std::string& vehicle, host::LinkOptions& link);
void addVehicle(CLI::App& command, VehicleChoice& choice);
/// --config
void addConfiguration(CLI::App& command, std::string& config);
/// --interval
void addIntervals(CLI::App& command, host::LinkOptions& link);
/// --trace
void addTrace(CLI::App& command, host::LinkOptions& link);
/// FILE, which is read as a record.
void addRecordFile(CLI::App& command, std::string& file);

}  // namespace tarnlog::record
