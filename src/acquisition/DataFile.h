#pragma once

#include <string>
#include <string_view>

#include "acquisition/RollingBuffer.h"
#include "acquisition/TimeOrigin.h"

namespace tarnlog {

/// An open record or event file. Destroying it closes it.
class DataFile {
 public:
  virtual ~DataFile() = default;
  virtual void writeBuffer(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) = 0;
  virtual void writeCurrent(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) = 0;
  /// Writes what the format needs at its end. At most once, before destroying.
  virtual void finish() = 0;
  /// Rows that are written now get lost.
  virtual bool failing() const = 0;
};

}  // namespace tarnlog
