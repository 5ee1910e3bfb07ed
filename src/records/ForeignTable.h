#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "records/Record.h"

/// Tables of other programs: text files with a line for each row.
namespace tarnlog {

/// How such a file is read.
struct ForeignTableChoice {
  char separator = ',';                   ///< between cells: comma, semicolon, TAB, "|" or blank
  char decimal = '.';                     ///< or a comma
  std::size_t headerLines = 1;            ///< before the rows: names, and units where the last line has them
  std::optional<std::size_t> timeColumn;  ///< none: rows are a second apart
  double timeUnit = 1;  ///< seconds of a number in that column; clock times and dates tell themselves
  bool utf8 = true;     ///< else windows-1252
  bool operator==(const ForeignTableChoice&) const = default;
};

/// The first lines of such a file, and what seems to suit it.
struct ForeignTablePreview {
  ForeignTableChoice choice;
  std::vector<std::vector<std::string>> lines;  ///< their cells, headers too, UTF-8
};

/// Raises NotARecord, with what was expected, for what is no table: bytes that are no text, or text without
/// columns of numbers.
ForeignTablePreview lookAtForeignTable(const ReadableFile& file);
/// The cells of the first lines, when they are read so.
std::vector<std::vector<std::string>> foreignLines(const ReadableFile& file,
                                                   const ForeignTableChoice& choice);

/// Seconds that a cell of the time column tells: a number, "13:05:07.5", "2026-11-16T19:05:08.13Z" or the
/// like (since 1970 then). None when it is no time.
std::optional<double> foreignTime(std::string_view cell, const ForeignTableChoice& choice);

/// As `openRecord`, of a table read so. Times count from the first row where they are dates.
std::unique_ptr<RecordReader> openForeignTable(const ReadableFile& file, const ForeignTableChoice& choice);

}  // namespace tarnlog
