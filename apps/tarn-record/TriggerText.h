#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "config/oTarnTrigger.h"

namespace tarnlog::record {

/// A trigger as the command line tells it.
struct TriggerText {
  std::int32_t type = oTarnTrigger::kManual;
  std::string path = {};  ///< ECU/REQUEST/DATA of a channel
  std::int32_t edge = 1;  ///< 1: rises to the level, -1: falls to it
  double level = 0;
  std::optional<std::int32_t> seconds = {};  ///< of a time
};

/// "manual", "ECU/REQUEST/DATA>LEVEL", "...<LEVEL" and, where a time is possible, "30s". >= and <= say the
/// same, for the level itself counts. Raises BadInput, which names the option, for anything else.
TriggerText parseTrigger(const char* option, const std::string& text, bool timePossible);

}  // namespace tarnlog::record
