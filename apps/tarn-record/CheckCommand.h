#pragma once

#include <string>

#include "apps/common/LoadedConfiguration.h"

namespace tarnlog::record {

/// What loads, and what this vehicle does not offer, by name.
std::string checkReport(const LoadedConfiguration& configuration);

}  // namespace tarnlog::record
