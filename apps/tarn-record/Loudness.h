#pragma once

#include <cstdint>

namespace tarnlog::record {

/// How much a command tells on standard error.
enum class Loudness : std::uint8_t {
  Quiet,   ///< only what failed
  Usual,   ///< the log, too, and how well it went
  Verbose  ///< what helps to find a fault, too
};

}  // namespace tarnlog::record
