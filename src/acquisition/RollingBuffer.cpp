#include "acquisition/RollingBuffer.h"

#include <algorithm>

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

/// Nothing in a cell may end the cell or the line.
bool breaksCell(char c) { return c == '\t' || c == '\r' || c == '\n'; }

void appendCell(std::string& line, const std::string& text) {
  line.push_back('\t');
  const std::size_t start = line.size();
  line.append(text);
  if (std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }))
    std::replace_if(line.begin() + static_cast<std::ptrdiff_t>(start), line.end(), breaksCell, ' ');
}

}  // namespace

void RollingBuffer::Create(std::int32_t columns, std::int32_t rows) {
  columns_ = columns;
  rows_ = rows;
  current_ = previous_ = 0;
  full_ = false;
  cells_.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), std::string());
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
}

void RollingBuffer::SetData(std::int32_t column, std::string_view text) {
  if (!empty()) cell(current_, column).assign(text);
}

const std::string& RollingBuffer::GetData(std::int32_t column, bool& unchanged) const {
  static const std::string nothing;
  unchanged = false;
  if (empty()) return nothing;
  const std::string& text = cell(current_, column);
  unchanged = previous_ != 0 && cell(previous_, column) == text;
  return text;
}

void RollingBuffer::GetTime(Milliseconds& time) const {
  if (!empty()) time = times_[static_cast<std::size_t>(current_ - 1)];
}

template <class WriteRow>
void RollingBuffer::forEachRowOldestFirst(WriteRow writeRow) const {
  if (empty()) return;
  std::int32_t row = full_ ? current_ : 0;
  do {
    row = row == rows_ ? 1 : row + 1;
    writeRow(row);
  } while (row != current_);
}

void RollingBuffer::WriteBufferToFile(TextStream& stream, Milliseconds t0, std::string_view mark) {
  forEachRowOldestFirst(
      [&](std::int32_t row) { writeTextRow(stream, row, t0, row == current_ ? mark : std::string_view()); });
}

void RollingBuffer::WriteCurrentToFile(TextStream& stream, Milliseconds t0, std::string_view mark) {
  if (!empty()) writeTextRow(stream, current_, t0, mark);
}

void RollingBuffer::WriteBufferToSaxFile(ContentHandler& handler, Milliseconds t0, std::string_view mark) {
  forEachRowOldestFirst(
      [&](std::int32_t row) { writeSaxRow(handler, row, t0, row == current_ ? mark : std::string_view()); });
}

void RollingBuffer::WriteCurrentToSaxFile(ContentHandler& handler, Milliseconds t0, std::string_view mark) {
  if (!empty()) writeSaxRow(handler, current_, t0, mark);
}

void RollingBuffer::writeTextRow(TextStream& stream, std::int32_t row, Milliseconds t0,
                                 std::string_view mark) {
  line_.clear();
  appendSeconds2(line_, millisecondsBetween(t0, timeOf(row)), decimalSeparator_);
  line_.append("\t\"").append(mark).push_back('"');
  for (std::int32_t column = 1; column <= columns_; ++column) appendCell(line_, cell(row, column));
  stream.writeLine(line_);
}

void RollingBuffer::writeSaxRow(ContentHandler& handler, std::int32_t row, Milliseconds t0,
                                std::string_view mark) {
  line_.clear();
  appendSeconds2(line_, millisecondsBetween(t0, timeOf(row)), decimalSeparator_);
  attributes_.clear();
  attributes_.addAttribute("Time", line_);
  attributes_.addAttribute("Event", mark);
  for (std::int32_t column = 1; column <= columns_; ++column)
    attributes_.addAttribute(columnNames_[static_cast<std::size_t>(column - 1)], cell(row, column));
  handler.startElement("row", attributes_);
  handler.endElement("row");
}

}  // namespace tarnlog
