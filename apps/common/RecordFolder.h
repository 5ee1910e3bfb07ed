#pragma once

#include <string>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// Puts the files into a folder named on the command line. It is made when missing: whoever names it wants
/// the files there. Raises BadInput when it cannot be made.
void useFolder(oTarnParameters& parameters, const std::string& folder);

}  // namespace tarnlog
