#pragma once

#include <string>

#include "apps/common/LoadedConfiguration.h"
#include "catalogue/SessionDocument.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::record {

struct CheckedConfiguration {
  std::string report;   ///< what a run would do, what this vehicle does not offer, what is odd in the file
  std::string refusal;  ///< why a run would not start; empty when it would
};

/// Does what a run does before it sends anything. Raises the loader's TarnError when the file is not a
/// configuration.
CheckedConfiguration checkConfiguration(const FileSystem& files, const SettingsStore& settings,
                                        const std::string& file, ferrox3::Session& session,
                                        const SessionDocument& document);

}  // namespace tarnlog::record
