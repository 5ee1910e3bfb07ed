#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// What may stand behind an option, told so that a refusal says what was expected.
namespace tarnlog {

/// The library's own range says "not in range" of 2.7.
CLI::Validator wholeNumber(int least, int most);
/// With "." and without a unit.
CLI::Validator number();
/// One of these words. The refusal names the nearest.
CLI::Validator oneOf(const std::vector<std::string>& choices);
/// A file or pipe with a path: not "-", which would be standard input or output.
CLI::Validator noStandardStream();

}  // namespace tarnlog
