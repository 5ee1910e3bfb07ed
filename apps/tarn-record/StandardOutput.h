#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tarnlog::record {

/// To standard output, at once. Raises a std::runtime_error where that fails.
void print(const std::string& text);

/// What a command did, with names out of files: to standard error where its output goes to standard output.
void report(const std::string& output, const std::string& text);

/// Columns of the terminal that standard output is, if it is one.
std::optional<std::size_t> terminalWidth();

}  // namespace tarnlog::record
