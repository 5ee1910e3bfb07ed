#pragma once

#include <string>

#include "platform/files/FileSystem.h"

namespace tarnlog::record {

struct ImportOptions {
  std::string odx;     ///< a PDX container, or one ODX document
  std::string output;  ///< the vehicle description, replaced when it exists
  std::string name;    ///< of the vehicle; empty: the container's file name
};

/// Writes a vehicle description from an ODX container and gives the report: what was taken over, what to look
/// at, what was left out and why. TarnError when nothing could be taken over.
std::string importOdxFile(FileSystem& files, const ImportOptions& options);

}  // namespace tarnlog::record
