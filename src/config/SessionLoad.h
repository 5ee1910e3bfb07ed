#pragma once

#include <string>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"

namespace tarnlog {

/// One thing that a configuration asks for and the connected vehicle does not give.
struct Lack {
  enum class Kind {
    Parameters,       ///< the file has no "Parameters" element, and nothing in it was taken
    Data,             ///< not offered, dropped
    Duplicate,        ///< in the file before, taken once
    WrongFunction,    ///< loaded, but cannot be acquired: the ECU has another function in the vehicle
    ScenarioRequest,  ///< not offered, dropped
    StartTrigger,     ///< it watched data that are not offered; start is manual now
    StopTrigger
  };
  Kind kind;
  std::string path;  ///< "ECU/REQUEST/DATA" or "ECU/REQUEST"; empty for triggers
};

/// What a load tells besides the configuration.
struct SessionLoad {
  std::vector<Lack> lacks;  ///< in the order of `Kind` and of the file
  bool record = false;      ///< the file is a record or an event file
};

/// Replaces the data items by those of a configuration file, as this session can run them: numbered by
/// position, references mapped and corrected. Raises the loader's TarnError when the file is not a
/// configuration; there are no data items then and the rest is as before.
SessionLoad loadForSession(oTarnParameters& parameters, const FileSystem& files, const std::string& fileName,
                           const SessionDocument& session);

}  // namespace tarnlog
