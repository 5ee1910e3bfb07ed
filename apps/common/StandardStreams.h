#pragma once

namespace tarnlog {

/// Opens /dev/null for standard input, output or error where the caller closed them. Otherwise the next file
/// opened takes such a number, and what is printed lands between the rows of a record file.
void openClosedStandardStreams();

}  // namespace tarnlog
