#pragma once

#include <CLI/CLI.hpp>

#include "apps/tarn-record/Loudness.h"

namespace tarnlog::record {

/// --quiet and --verbose.
void addLoudness(CLI::App& command, Loudness& loudness);

}  // namespace tarnlog::record
