#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "config/oTarnParameters.h"

namespace tarnlog::record {

/// No acquisition takes a longer time.
inline constexpr int kLongestSeconds = 2147483;

/// What replaces the configuration's own.
struct FileOptions {
  std::optional<std::string> folder = {};
  std::optional<std::string> format = {};
  std::optional<std::int32_t> period = {};
  std::optional<std::string> prefix = {};

  /// The folder as it stands there: nothing is made.
  void apply(oTarnParameters& parameters) const;
};

}  // namespace tarnlog::record
