#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "records/ForeignTable.h"
#include "records/RecordTable.h"

namespace tarnlog {

/// Reads a record file into a table, and what is written to it later.
class TableReader {
 public:
  /// Called every few milliseconds; what it raises ends the reading.
  using Pause = std::function<void()>;

  virtual ~TableReader() = default;
  /// Reads on to the end that the file has now. Raises a TarnError when it cannot be read.
  virtual void readOn() = 0;
  /// After `readOn`: more may be written to the file.
  virtual bool isOpenEnded() const = 0;
  /// What has been read, with what is missing. Null while no column is known.
  virtual std::shared_ptr<RecordTable> table() = 0;
  /// Bytes that have been looked at.
  virtual std::uint64_t bytesRead() const = 0;
};

/// As `openRecord`; the file may grow between two calls of `readOn`. Raises a TarnError when it is no record.
std::unique_ptr<TableReader> openTable(const ReadableFile& file, const std::string& name,
                                       TableReader::Pause pause);
/// A table of another program.
std::unique_ptr<TableReader> openTable(const ReadableFile& file, const ForeignTableChoice& choice,
                                       TableReader::Pause pause);

}  // namespace tarnlog
