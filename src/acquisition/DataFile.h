#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/RollingBuffer.h"
#include "acquisition/TimeOrigin.h"
#include "config/oTarnParameters.h"
#include "platform/ferrox3/Session.h"
#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// Rows of a file, from its opening on.
struct RowCount {
  std::uint64_t written = 0;  ///< handed to the system
  std::uint64_t synced = 0;   ///< on the disk for certain
};

/// An open record or event file. Destroying it closes it.
class DataFile {
 public:
  virtual ~DataFile() = default;
  virtual void writeBuffer(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) = 0;
  virtual void writeCurrent(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) = 0;
  /// Writes what the format needs at its end. At most once, before destroying.
  virtual void finish() = 0;
  /// As `FileStream::sync`.
  virtual void sync() = 0;
  virtual RowCount rows() const = 0;
  /// Rows that are written now get lost.
  virtual bool failing() const = 0;
};

/// What the head of a record or event file tells.
struct DataFileHead {
  bool event = false;
  std::string description;  ///< "Data file", or which event it is
  std::string baseName;     ///< of the record file, without folder and prefix; may be empty
  LocalDateTime now;
  const std::vector<ferrox3::DataItem*>& columns;
  const oTarnParameters& parameters;
  const UserLocale& locale;
  const std::string& stylesheetUrl;
};

}  // namespace tarnlog
