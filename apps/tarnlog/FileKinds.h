#pragma once

#include <string>
#include <vector>

#include "platform/files/FileSystem.h"

namespace tarnlog {

/// Files that were dropped on the window or named on the command line, each in the order given.
struct FileKinds {
  std::vector<std::string> records;
  std::vector<std::string> configurations;
  /// Vehicles, traces, and what nobody can open.
  std::vector<std::string> others;
};

/// By the end of their names; of XML files by what they hold.
FileKinds sortedByKind(const std::vector<std::string>& paths, const FileSystem& files);

}  // namespace tarnlog
