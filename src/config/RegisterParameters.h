#pragma once

#include <cstdint>
#include <string>

#include "platform/settings/SettingsStore.h"

/// The three recording settings that outlive a configuration and serve as defaults of new ones.
namespace tarnlog {

inline constexpr std::int32_t kRegisterPathName = 0;  ///< record-file folder
inline constexpr std::int32_t kRegisterFormat = 1;    ///< ".txt" or ".xml"
inline constexpr std::int32_t kRegisterPeriod = 2;    ///< seconds, decimal text

/// The stored value; the fallback when it is absent, empty or cannot be read, or the id is unknown.
std::string GetRegisterParameter(const SettingsStore& settings, std::int32_t id, const std::string& fallback);

/// Raises error 1, source "SetRegisterParameter", for an unknown id; a store that fails raises its own error.
void SetRegisterParameter(SettingsStore& settings, std::int32_t id, const std::string& value);

}  // namespace tarnlog
