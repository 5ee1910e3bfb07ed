#pragma once

#include <string>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"

namespace tarnlog {

/// The item of this datum of the session, which is added to those that are recorded unless it is there:
/// without a display until it is given one. Raises a TarnError when the session does not offer it.
oTarnScope& addDatum(oTarnParameters& parameters, const SessionDocument& session, const std::string& ecu,
                     const std::string& request, const std::string& data);

}  // namespace tarnlog
