#pragma once

#include <string>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"

namespace tarnlog::record {

/// Adds the data named by ECU/REQUEST/DATA, each with a display that suits it. Raises BadInput, with names
/// that are near, when the vehicle does not offer one, or one is named twice.
void addNamedData(oTarnParameters& parameters, const SessionDocument& session,
                  const std::vector<std::string>& paths);

}  // namespace tarnlog::record
