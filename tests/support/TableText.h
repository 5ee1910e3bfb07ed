#pragma once

#include <string>

#include "platform/text/Numbers.h"
#include "records/RecordMarks.h"
#include "records/RecordTable.h"
#include "records/TableReader.h"

namespace tarnlog::test {

/// A file in memory that grows.
class GrowingFile : public ReadableFile {
 public:
  std::string bytes;
  std::uint64_t size() const override { return bytes.size(); }
  std::size_t readAt(std::uint64_t place, char* to, std::size_t most) const override {
    return place >= bytes.size() ? 0 : bytes.copy(to, most, static_cast<std::size_t>(place));
  }
};

/// All of a table, to be compared.
inline std::string tableText(const RecordTable& table) {
  std::string text;
  for (const TableRecording& recording : table.recordings) {
    text += "recording\n";
    for (const TableMark& mark : recording.marks)
      text += markText({mark.kind, mark.time, mark.till, mark.number, mark.text}) +
              exactNumberText(mark.time) + "\n";
    for (const TableGroup& group : recording.groups)
      for (std::int64_t row = 0; row < group.rows(); ++row) {
        text += exactNumberText(group.times[row]);
        for (const TableColumn& column : group.columns)
          text += " " + column.about.name + "=" + exactNumberText(column.numbers[row]) +
                  std::string(column.textOf(row));
        text += "\n";
      }
  }
  for (const std::string& missing : table.missing) text += missing + "\n";
  return text;
}

/// After reading on.
inline std::string tableText(TableReader& reader) {
  reader.readOn();
  return tableText(*reader.table());
}

}  // namespace tarnlog::test
