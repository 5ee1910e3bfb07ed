#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/CellRow.h"
#include "acquisition/TextStream.h"
#include "acquisition/TimeOrigin.h"
#include "platform/time/Clock.h"
#include "platform/xml/ContentHandler.h"

namespace tarnlog {

/// A fixed-size circular table of time-stamped rows, one text cell per data item (columns from 1), and the
/// only place where the rows of record and event files are made. Allocates at `Create` and for cells longer
/// than ever before. While it is empty, reading gives nothing and writing writes nothing.
class RollingBuffer {
 public:
  /// Relative times are written with this decimal separator.
  explicit RollingBuffer(char decimalSeparator = '.') : decimalSeparator_(decimalSeparator) {}

  /// Sizes and empties the table.
  void Create(std::int32_t columns, std::int32_t rows);
  /// Goes to the next row, the oldest one when the table is full. Its cells keep old texts until `SetData`.
  void AddRow(Milliseconds time);
  void SetData(std::int32_t column, std::string_view text) {
    if (!empty()) row(current_).set(column, text);
  }
  /// The newest row's cell; `unchanged` tells whether the row before held the same text (false when there is
  /// none). Valid until the buffer is changed.
  std::string_view GetData(std::int32_t column, bool& unchanged) const;
  void GetTime(Milliseconds& time) const;
  /// Of the oldest row.
  void GetOldestTime(Milliseconds& time) const;
  bool empty() const { return current_ == 0; }
  std::int32_t rows() const { return full_ ? rows_ : current_; }
  std::int32_t columns() const { return columns_; }

  /// Every row, oldest first, or the newest one only; times relative to `t0`, the mark on the newest row.
  void WriteBufferToFile(TextStream& stream, TimeOrigin t0, std::string_view mark);
  void WriteCurrentToFile(TextStream& stream, TimeOrigin t0, std::string_view mark);
  void WriteBufferToSaxFile(ContentHandler& handler, TimeOrigin t0, std::string_view mark);
  void WriteCurrentToSaxFile(ContentHandler& handler, TimeOrigin t0, std::string_view mark);

 private:
  template <class WriteRow>
  void forEachRowOldestFirst(WriteRow writeRow) const;
  CellRow& row(std::int32_t number) { return cells_[static_cast<std::size_t>(number - 1)]; }
  const CellRow& row(std::int32_t number) const { return cells_[static_cast<std::size_t>(number - 1)]; }
  std::int32_t oldest() const { return full_ ? current_ % rows_ + 1 : 1; }
  Milliseconds& timeOf(std::int32_t number) { return times_[static_cast<std::size_t>(number - 1)]; }
  void writeTextRow(TextStream& stream, std::int32_t number, TimeOrigin t0, std::string_view mark);
  void writeSaxRow(ContentHandler& handler, std::int32_t number, TimeOrigin t0, std::string_view mark);

  char decimalSeparator_;
  std::int32_t columns_ = 0;
  std::int32_t rows_ = 0;
  std::int32_t current_ = 0;   ///< newest row, 0 while empty
  std::int32_t previous_ = 0;  ///< newest row before the last AddRow
  bool full_ = false;
  std::vector<CellRow> cells_;
  std::vector<Milliseconds> times_;
  std::vector<std::string> columnNames_;  ///< C1, C2, ...
  std::string time_;                      ///< scratch, kept for its capacity
  SaxAttributes attributes_;
};

}  // namespace tarnlog
