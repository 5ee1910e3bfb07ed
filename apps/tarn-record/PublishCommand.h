#pragma once

#include <string>
#include <vector>

#include "apps/common/PublishOptions.h"
#include "apps/tarn-record/Loudness.h"

namespace tarnlog::record {

struct PublishCommandOptions {
  std::vector<std::string> files;
  PublishOptions publish;
  bool again = false;  ///< from the beginning
  Loudness loudness = Loudness::Usual;
};

/// Publishes what of measurement files was not acknowledged yet. What goes wrong goes to standard error.
/// Returns the exit code: failed when not all is published. Raises BadInput and TarnErrors before it begins.
int publishFiles(const PublishCommandOptions& options);

}  // namespace tarnlog::record
