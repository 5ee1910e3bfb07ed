#pragma once

#include <string>

#include "records/RecordTexts.h"

namespace tarnlog::record {

struct ExportOptions {
  std::string input;         ///< a record, an event file or a measurement file
  std::string format;        ///< see `kExportFormats`
  std::string output = "-";  ///< replaced when it exists
  ExportChoice choice;
};

inline constexpr const char* kExportFormats[] = {"csv", "mf4", "json"};

/// Writes a record in another format. Returns what is missing in it, a line for each matter. Raises BadInput
/// or a TarnError when it cannot be read, lacks data that are asked for, or does not tell when it began while
/// UTC is wanted.
std::string exportRecord(const ExportOptions& options);

}  // namespace tarnlog::record
