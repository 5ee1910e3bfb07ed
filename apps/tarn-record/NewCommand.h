#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"

namespace tarnlog::record {

/// What of a vehicle is to be recorded.
struct DataChoice {
  std::vector<std::string> data = {};   ///< ECU/REQUEST/DATA
  std::vector<std::string> match = {};  ///< patterns for that, or for DATA alone: see `NamePattern`
  bool all = false;
};

/// When a recording is to start and to stop. What is not told stays.
struct TriggerChoice {
  std::optional<std::string> start = {};  ///< "manual" or "ECU/REQUEST/DATA>LEVEL", or with <
  std::optional<std::string> stop = {};   ///< the same, or "30s"
  std::optional<std::int32_t> before = {};
  std::optional<std::int32_t> after = {};
};

/// Adds the data, first those that are named, in that order, then the others in the vehicle's; each once,
/// with a display that suits it as long as there are few. Raises BadInput, with names that are near, for a
/// name or a pattern that fits nothing, and when nothing is chosen.
void addChosenData(oTarnParameters& parameters, const SessionDocument& session, const DataChoice& choice);

/// Sets start and stop. A trigger can watch only what is recorded: gives the names of data that were added
/// for that. Raises BadInput for what a configuration cannot hold.
std::vector<std::string> setTriggers(oTarnParameters& parameters, const SessionDocument& session,
                                     const TriggerChoice& choice);

}  // namespace tarnlog::record
