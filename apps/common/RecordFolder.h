#pragma once

#include <string>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// Makes a folder named on the command line when it is missing: whoever names it wants files there. Raises
/// BadInput when it cannot be made.
void makeFolder(const std::string& folder);
/// The same, and puts the files there.
void useFolder(oTarnParameters& parameters, const std::string& folder);

}  // namespace tarnlog
