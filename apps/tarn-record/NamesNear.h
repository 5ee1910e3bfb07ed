#pragma once

#include <string>
#include <vector>

#include "config/SessionLoad.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::record {

/// Names of data or requests that the vehicle offers and that may have been meant by one that it lacks.
std::vector<std::string> namesNear(const Lack& lack, const ferrox3::Session& vehicle);

}  // namespace tarnlog::record
