#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "apps/tarn-record/FileOptions.h"

/// The options for files that several commands have.
namespace tarnlog::record {

/// --folder, --format, --period and --prefix.
void addFileOptions(CLI::App& command, FileOptions& options);

/// --output, which has to be given; `what` says what is written there.
void addOutput(CLI::App& command, std::string& output, const std::string& what);

}  // namespace tarnlog::record
