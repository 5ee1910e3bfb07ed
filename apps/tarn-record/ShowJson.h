#pragma once

#include <string>

#include "apps/tarn-record/ShownRecord.h"

namespace tarnlog::record {

/// The same for programs: one object. What is not there is null or left out.
std::string showJson(const ShownRecord& shown);

}  // namespace tarnlog::record
