#pragma once

#include <string>

namespace tarnlog {

/// Makes an XML record or event file whole whose recording was killed, and says in a line for each matter
/// what was done: the root is closed, what was not finished is dropped, rows that were glued are parted. It
/// works on a copy that takes the file's place once it has been read back without a fault; the original stays
/// beside it as NAME.bak (.bak2, ... when taken). A file that is whole stays as it is. Raises BadInput or a
/// TarnError when the file is no record or still being written; the file stays as it is then, too.
std::string repairRecord(const std::string& path);

}  // namespace tarnlog
