#pragma once

#include <string>
#include <string_view>

#include "platform/files/FileSystem.h"

/// Records and event files carry the configuration that they were made with. It may be opened; the file must
/// never be written over.
namespace tarnlog {

/// Whether the "Description" of an XML file is that of a record or an event file.
bool describesRecord(std::string_view description);

/// Whether the file is a record or an event file, text or XML, by its beginning. False for one that cannot be
/// read.
bool isRecordFile(const FileSystem& files, const std::string& fileName);

}  // namespace tarnlog
