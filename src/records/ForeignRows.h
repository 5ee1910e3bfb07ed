#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "records/ForeignCells.h"
#include "records/LineReader.h"

namespace tarnlog {

/// The rows of a table of another program, cut into cells: its lines, without the empty ones. Lines end with
/// LF, CR LF or, where no LF comes, CR. A cell in quotes may go over several lines.
class ForeignRows {
 public:
  /// A mark of UTF-8 before them is passed over.
  ForeignRows(const ReadableFile& file, char separator);

  /// Goes to the next row; false behind the last one.
  bool next();
  /// They may be changed until the next row is gone to.
  std::span<const std::span<char>> cells() const { return cells_; }
  /// Number of its line, from 1; of its first one when it has several.
  std::size_t line() const { return line_; }
  /// Place behind it.
  std::uint64_t nextPlace() const { return lines_->nextPlace(); }
  /// A quote that it opens is not closed soon. Its first line alone is this row then, and from here on quotes
  /// are closed in their line or not at all: one that stands there by mistake costs no other row.
  bool unclosed() const { return unclosed_; }

 private:
  void split();
  void goOnBehindFirstLine();

  const ReadableFile& file_;
  char lineEnd_ = '\n';
  std::optional<LineReader> lines_;
  ForeignCells splitter_;
  std::span<const std::span<char>> cells_;
  std::size_t line_ = 0;
  std::size_t more_ = 0;      ///< lines of the row behind its first one
  std::string raw_;           ///< a row with quotes
  std::string text_;          ///< the same, cut into cells
  std::uint64_t behind_ = 0;  ///< place: behind the first line of the row
  bool unclosed_ = false;
  bool joins_ = true;
};

}  // namespace tarnlog
