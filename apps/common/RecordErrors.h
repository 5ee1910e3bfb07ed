#pragma once

#include <string>

#include "apps/common/BadInput.h"

namespace tarnlog {

/// Does a step and says, in a BadInput, which file its fault is in.
template <class Step>
auto inFile(const std::string& path, Step step) {
  try {
    return step();
  } catch (const TarnError& error) {
    if (error.source() == "FileSystem") throw;  // which names the file itself, and it may be another
    throw BadInput(path + ": " + error.description());
  }
}

}  // namespace tarnlog
