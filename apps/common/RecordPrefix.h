#pragma once

#include <string>

#include "platform/files/FileSystem.h"

namespace tarnlog {

/// Raises a TarnError when the prefix of record names that a configuration file holds leads out of the folder
/// that its user chooses.
void refusePrefixOutside(const std::string& configuration, const std::string& prefix);

/// The same of a file that is not loaded yet. One that cannot be read is left to the loader.
void refusePrefixOutside(const FileSystem& files, const std::string& configuration);

}  // namespace tarnlog
