#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>

#include "records/ForeignTable.h"
#include "records/RecordTexts.h"

namespace tarnlog {

/// What of which record goes into which file.
struct PartChoice {
  enum class Format { Csv, Mf4 };

  std::string input;
  std::optional<ForeignTableChoice> foreign;  ///< it is a table of another program, read so
  std::size_t recording = 0;                  ///< of those in the file; the others stay out
  std::string output;                         ///< replaced when it exists, once all is written
  Format format = Format::Csv;
  ExportChoice choice;
};

/// Reads the record's file again and writes that part. Raises a TarnError that names the file, also where the
/// output is the record itself. Once `cancelled` is true, it returns false soon and has written nothing.
bool exportPart(const PartChoice& part, const std::atomic<bool>& cancelled);

}  // namespace tarnlog
