#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>
#include <vector>

/// What may stand behind an option, told so that a refusal says what was expected, and so that shells can
/// complete it.
namespace tarnlog {

/// The library's own range says "not in range" of 2.7.
CLI::Validator wholeNumber(int least, int most);
/// With "." and without a unit.
CLI::Validator number();
/// One of these words. The refusal names the nearest.
CLI::Validator oneOf(const std::vector<std::string>& choices);
/// A file or pipe with a path: not "-", which would be standard input or output.
CLI::Validator noStandardStream();

enum class ValueKind : std::uint8_t {
  Text,
  File,
  Folder,
  Link,           ///< URL of a vehicle
  Datum,          ///< ECU/REQUEST/DATA of the vehicle
  DatumAndLevel,  ///< the same with < or > and a number
  Request,        ///< ECU/REQUEST=... of the vehicle
  RecordDatum,    ///< a datum of the record that the line names
};

/// Checks nothing: tells what the value is.
CLI::Validator isA(ValueKind kind);

ValueKind valueKindOf(CLI::Option& option);
/// Of `oneOf`; empty without one.
std::vector<std::string> choicesOf(CLI::Option& option);

}  // namespace tarnlog
