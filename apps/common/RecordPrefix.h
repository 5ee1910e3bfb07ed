#pragma once

#include <string>

#include "platform/files/FileSystem.h"

namespace tarnlog {

/// Raises a TarnError when a configuration file's prefix of record names leads out of the folder that its
/// user chooses. A file that cannot be read is left to the loader.
void refusePrefixOutside(const FileSystem& files, const std::string& configuration);

}  // namespace tarnlog
