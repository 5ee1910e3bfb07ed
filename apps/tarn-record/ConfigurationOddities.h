#pragma once

#include <string>
#include <vector>

#include "platform/files/FileSystem.h"

namespace tarnlog::record {

/// What a configuration file of version 2.0 holds that its reader passes over or takes for something else, a
/// line each with its place: elements and attributes that it does not know, numbers that are none. Loading is
/// lenient; whoever wrote the file by hand wants to know. Nothing for a file that cannot be read.
std::vector<std::string> configurationOddities(const FileSystem& files, const std::string& file);

}  // namespace tarnlog::record
