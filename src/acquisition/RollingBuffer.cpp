#include "acquisition/RollingBuffer.h"

#include <algorithm>

#include "platform/base/CountBytes.h"
#include "platform/text/Cell.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

/// A cell with what breaks it made blank.
void appendCleanCell(ByteBuffer& line, std::string_view text) {
  char* const cell = line.room(text.size() + 1);
  *cell = '\t';
  line.end(std::replace_copy_if(text.begin(), text.end(), cell + 1, breaksCell, ' '));
}

/// Whether a row needs more than copying: a control character, or one that is not ASCII.
bool needsCare(char c) { return static_cast<unsigned char>(c) < ' ' || static_cast<unsigned char>(c) > '~'; }

}  // namespace

void RollingBuffer::Create(std::int32_t columns, std::int32_t rows) {
  columns_ = columns;
  rows_ = rows;
  current_ = previous_ = 0;
  full_ = false;
  cells_.clear();
  for (std::int32_t row = 1; row <= rows; ++row) cells_.emplace_back(columns);
  times_.assign(static_cast<std::size_t>(rows), 0);
  columnNames_.clear();
  for (std::int32_t column = 1; column <= columns; ++column)
    columnNames_.push_back("C" + std::to_string(column));
}

void RollingBuffer::AddRow(Milliseconds time) {
  if (rows_ < 1) return;
  previous_ = current_;
  if (++current_ > rows_) {
    current_ = 1;
    full_ = true;
  }
  timeOf(current_) = time;
  row(current_).startFilling();
}

std::string_view RollingBuffer::GetData(std::int32_t column, bool& unchanged) const {
  unchanged = false;
  if (empty()) return {};
  const std::string_view text = row(current_).cell(column);
  unchanged = previous_ != 0 && row(previous_).cell(column) == text;
  return text;
}

void RollingBuffer::GetTime(Milliseconds& time) const {
  if (!empty()) time = times_[static_cast<std::size_t>(current_ - 1)];
}

void RollingBuffer::GetOldestTime(Milliseconds& time) const {
  if (!empty()) time = times_[static_cast<std::size_t>(oldest() - 1)];
}

template <class WriteRow>
void RollingBuffer::forEachRowOldestFirst(WriteRow writeRow) const {
  if (empty()) return;
  for (std::int32_t row = oldest(); row != current_; row = row % rows_ + 1) writeRow(row);
  writeRow(current_);
}

void RollingBuffer::WriteBufferToFile(TextStream& stream, TimeOrigin t0, std::string_view mark) {
  forEachRowOldestFirst(
      [&](std::int32_t row) { writeTextRow(stream, row, t0, row == current_ ? mark : std::string_view()); });
}

void RollingBuffer::WriteCurrentToFile(TextStream& stream, TimeOrigin t0, std::string_view mark) {
  if (!empty()) writeTextRow(stream, current_, t0, mark);
}

void RollingBuffer::WriteBufferToSaxFile(ContentHandler& handler, TimeOrigin t0, std::string_view mark) {
  forEachRowOldestFirst(
      [&](std::int32_t row) { writeSaxRow(handler, row, t0, row == current_ ? mark : std::string_view()); });
}

void RollingBuffer::WriteCurrentToSaxFile(ContentHandler& handler, TimeOrigin t0, std::string_view mark) {
  if (!empty()) writeSaxRow(handler, current_, t0, mark);
}

void RollingBuffer::writeTextRow(TextStream& stream, std::int32_t number, TimeOrigin t0,
                                 std::string_view mark) {
  time_.clear();
  appendSeconds2(time_, t0.millisecondsTo(timeOf(number)), decimalSeparator_);
  ByteBuffer& line = stream.newLine();
  line.append(time_);
  line.append("\t\"");
  line.append(mark);
  line.append("\"");
  const std::string_view cells = row(number).text();
  // One TAB before each cell.
  const bool plain = countBytes(cells, needsCare) == static_cast<std::size_t>(columns_);
  if (plain) {
    line.append(cells);
  } else {
    for (std::int32_t column = 1; column <= columns_; ++column)
      appendCleanCell(line, row(number).cell(column));
  }
  stream.endLine(plain);
}

void RollingBuffer::writeSaxRow(ContentHandler& handler, std::int32_t number, TimeOrigin t0,
                                std::string_view mark) {
  time_.clear();
  appendSeconds2(time_, t0.millisecondsTo(timeOf(number)), decimalSeparator_);
  attributes_.clear();
  attributes_.addBorrowed("Time", time_);
  attributes_.addBorrowed("Event", mark);
  const CellRow& cells = row(number);
  for (std::int32_t column = 1; column <= columns_; ++column)
    attributes_.addBorrowed(columnNames_[static_cast<std::size_t>(column - 1)], cells.cell(column));
  handler.startElement("row", attributes_);
  handler.endElement("row");
}

}  // namespace tarnlog
