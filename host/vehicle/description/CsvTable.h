#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog::host {

/// Comma-separated numbers under column names. Failures are TarnErrors that name line and column.
class CsvTable {
 public:
  explicit CsvTable(std::string text);
  CsvTable(const CsvTable&) = delete;
  CsvTable& operator=(const CsvTable&) = delete;

  const std::vector<std::string_view>& columnNames() const { return names_; }
  /// Position of the column, columnNames().size() when there is none of this name.
  std::size_t find(std::string_view name) const;
  /// The column's numbers, all finite; at least one.
  std::vector<double> column(std::size_t position) const;

 private:
  std::string text_;
  std::vector<std::string_view> names_;
  std::vector<std::string_view> rows_;  ///< lines that are not empty
  std::vector<std::size_t> lineNumbers_;
};

}  // namespace tarnlog::host
