#pragma once

#include <string>
#include <vector>

#include "records/Record.h"
#include "records/RecordTexts.h"

namespace tarnlog {

/// Writes a record as CSV (RFC 4180): UTF-8, lines that end with LF, one header line, commas, "." in
/// numbers. Columns: the recording's number where the file has several, time, mark, then the data. Rows of
/// groups that have one time share a line; a cell is empty where no sample stands or none was available. A
/// mark stands in the line of its time, or in one of its own.
class CsvExport : public RecordConsumer {
 public:
  CsvExport(const std::vector<RecordHead>& recordings, ExportChoice choice, ExportOutput output);

  void recording(std::size_t position) override;
  void row(const RecordRow& row) override;
  void note(const RecordNote& note) override;
  /// What is still kept. To be called at the end.
  void finish();

 private:
  /// A column of a group and the column of the table that it goes to, from left to right.
  struct Slot {
    std::size_t column;
    std::size_t value;
    bool scaled;
  };
  using Slots = std::vector<Slot>;

  void makeColumns(const std::vector<RecordHead>& recordings);
  void writeHeader();
  void writeRow(const RecordRow& row, const Slots& slots);
  void mergeRow(const RecordRow& row, const Slots& slots);
  void beginLine(double time, std::string_view timeText, std::string_view mark);
  void endLine();
  void endPending();
  void appendValue(std::string& out, const RecordValue& value, bool scaled) const;

  const std::vector<RecordHead>& recordings_;
  ExportChoice choice_;
  ExportOutput output_;
  std::vector<std::string> columns_;       ///< headings of the data
  std::vector<std::vector<Slots>> slots_;  ///< by recording and group
  std::size_t recording_ = 0;
  std::string out_;

  /// The line that more may come for: rows and a mark of the same time.
  struct Pending {
    bool open = false;
    double time = 0;
    std::string timeText;
    std::string mark;
    std::vector<std::string> cells;
    std::vector<bool> filled;
  };
  Pending pending_;
};

}  // namespace tarnlog
