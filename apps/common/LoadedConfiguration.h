#pragma once

#include <memory>
#include <string>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/SessionLoad.h"
#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog {

/// A configuration as this vehicle can run it, and what it lacks.
struct LoadedConfiguration {
  std::shared_ptr<oTarnParameters> parameters;
  std::vector<Lack> lacks;
};

/// Raises the loader's TarnError when the file is not a configuration, and one when it would write outside
/// the folder of its records.
LoadedConfiguration loadConfiguration(const FileSystem& files, const SettingsStore& settings,
                                      const std::string& file, const SessionDocument& session);

/// The same with the user's defaults, for a program that is to record it. Raises BadInput when the vehicle
/// offers none of the data.
LoadedConfiguration loadToRecord(FileSystem& files, const std::string& file, const ferrox3::Session& session);

/// One line for each thing that this vehicle does not offer.
std::vector<std::string> lackingLines(const LoadedConfiguration& configuration);

}  // namespace tarnlog
