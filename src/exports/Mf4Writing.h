#pragma once

#include <functional>
#include <vector>

#include "records/Record.h"
#include "records/RecordTexts.h"

namespace tarnlog {

class ExportFile;

/// Reads the record from its beginning to its end.
using ReadRecord = std::function<void(RecordConsumer& consumer)>;

/// Writes a record, which is read twice, as a measurement file into what must replace a file. Raises what
/// reading and writing raise.
void writeMf4(const std::vector<RecordHead>& recordings, const ReadRecord& read, const ExportChoice& choice,
              ExportFile& output);

}  // namespace tarnlog
