#pragma once

#include <CLI/CLI.hpp>

#include "apps/common/PublishOptions.h"

namespace tarnlog::record {

/// --publish-access, --publish-data, --publish-every and --publish-as.
void addPublishing(CLI::App& command, PublishOptions& options);

}  // namespace tarnlog::record
