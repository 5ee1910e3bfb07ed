#pragma once

#include <string>
#include <vector>

namespace tarnlog {

/// What a load passed over in a configuration file; names in the order of the file.
struct LoadReport {
  struct Dropped {
    std::string ecu;
    std::string request;
    std::string data;        ///< empty for a scenario request
    bool duplicate = false;  ///< offered, but in the file before
  };
  std::vector<Dropped> data;
  std::vector<Dropped> scenarioRequests;
  bool noParameters = false;  ///< a version-2.0 file without its "Parameters": nothing of it was taken
  bool record = false;        ///< the file is a record or an event file; its rows are no configuration
};

}  // namespace tarnlog
