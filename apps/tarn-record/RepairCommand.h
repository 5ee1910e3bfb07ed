#pragma once

#include <string>

#include "platform/files/FileSystem.h"

namespace tarnlog::record {

/// Closes the file in place, by renaming, and says what was done. Raises BadInput when it is not an XML
/// record file.
std::string repairFile(FileSystem& files, const std::string& path);

}  // namespace tarnlog::record
