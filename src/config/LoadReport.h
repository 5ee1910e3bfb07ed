#pragma once

#include <string>
#include <vector>

namespace tarnlog {

/// What a load dropped from a configuration file, by name, in the order of the file.
struct LoadReport {
  struct Dropped {
    std::string ecu;
    std::string request;
    std::string data;        ///< empty for a scenario request
    bool duplicate = false;  ///< offered, but in the file before
  };
  std::vector<Dropped> data;
  std::vector<Dropped> scenarioRequests;
};

}  // namespace tarnlog
