#pragma once

#include <string>

namespace tarnlog::record {

/// The path behind what `--output` was given: "-" is standard output.
std::string outputPath(const std::string& given);

/// Where a command says what it did: standard error when its output goes to standard output.
bool isStandardOutput(const std::string& path);

/// Raises BadInput when the output would replace the input. `input` may be no file.
void refuseInput(const std::string& output, const std::string& input);

}  // namespace tarnlog::record
