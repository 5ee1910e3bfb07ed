#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "acquisition/DataFile.h"
#include "platform/files/FileSystem.h"

namespace tarnlog {

/// A format of record and event files.
struct RecordFormat {
  std::string_view extension;    ///< with its dot, as a configuration's `fileFormat` names it
  std::string_view description;  ///< "tab-separated text"
  /// Its event files end with the recording, instead of with the acquisition.
  bool eventsEndWithRecord;
  /// Opens a file, head written. Null when the system gives no stream; NameTaken where another name has to be
  /// tried; other failures are TarnErrors.
  std::unique_ptr<DataFile> (*open)(FileSystem& files, const std::string& path, const DataFileHead& head);
};

/// All there are, in the order in which people are offered them. The first one is the default.
std::span<const RecordFormat> recordFormats();

/// By its extension; the default for every other extension.
const RecordFormat& recordFormatOf(std::string_view extension);

}  // namespace tarnlog
