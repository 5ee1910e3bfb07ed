#pragma once

#include <string>
#include <vector>

namespace tarnlog {

/// The XML record and event files and the measurement files in this folder that lack their end and that no
/// program writes any more: their recording was killed, and `repairRecord` closes them. Oldest first. Only
/// the beginning and the end of each file are read; what cannot be read is passed over.
std::vector<std::string> unfinishedRecords(const std::string& folder);

}  // namespace tarnlog
