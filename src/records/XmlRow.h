#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// The attributes of a `row` element of a record, one row at a time.
class XmlRow {
 public:
  struct Cell {
    std::size_t column = 0;  ///< from 1
    char* begin = nullptr;   ///< may be changed until the next row
    char* end = nullptr;
  };

  /// Whether the piece of a document is a row.
  static bool isRow(std::string_view piece);

  /// False when it is not well-formed or has no time. Bytes that are no UTF-8 are taken as windows-1252.
  bool read(std::string_view piece);
  Cell& time() { return time_; }
  std::string_view mark() const { return mark_; }
  std::vector<Cell>& cells() { return cells_; }

 private:
  bool take(std::string_view name, char* begin, char* end);

  std::string text_;
  Cell time_;
  std::string_view mark_;
  std::vector<Cell> cells_;
};

}  // namespace tarnlog
