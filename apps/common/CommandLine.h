#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tarnlog {

/// Why a command line that could not be parsed cannot be used, what was probably meant, and where help is.
std::string refusalOf(CLI::App& app, const CLI::ParseError& error, int argc, const char* const* argv);

}  // namespace tarnlog
