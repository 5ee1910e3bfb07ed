#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "records/Record.h"

/// How the columns of a record are called where they stand beside one another.
namespace tarnlog {

/// "ECU/REQUEST/DATA", without what the file does not tell.
std::string fullName(const RecordColumn& column);
/// Whether this is how somebody calls the column: DATA, REQUEST/DATA or ECU/REQUEST/DATA.
bool isCalled(const RecordColumn& column, std::string_view name);

/// Names by group and column, each once: the data's own where no other column has the same, else the full
/// one, with a number where that is not enough.
std::vector<std::vector<std::string>> shortNames(const RecordHead& head);

}  // namespace tarnlog
