#pragma once

#include <string>

#include "apps/common/RepairedCopy.h"

namespace tarnlog {

/// Finishes a measurement file whose recording was killed, as `repairRecord` does a record: what is whole
/// stays, its counts are written and its marks become events.
std::string repairMeasurement(const FileToRepair& file);

}  // namespace tarnlog
