#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/text/Numbers.h"

namespace tarnlog::bench {

/// Cells of record rows as a vehicle gives them: mostly numbers of up to two decimals, a few whole numbers
/// and states. Several rows, so that no row is as the one before it.
class RowTexts {
 public:
  explicit RowTexts(std::size_t columns) {
    std::uint32_t random = 1;
    for (std::vector<std::string>& row : rows_) {
      for (std::size_t column = 0; column < columns; ++column) {
        random = random * 1664525u + 1013904223u;
        row.push_back(text(column, random >> 16));
      }
    }
  }

  const std::vector<std::string>& row(std::size_t number) const { return rows_[number % kRows]; }

 private:
  static constexpr std::size_t kRows = 16;

  static std::string text(std::size_t column, std::uint32_t raw) {
    std::string result;
    if (column % 10 == 3) {
      appendNumber(result, static_cast<std::int32_t>(raw % 2));
    } else if (column % 10 == 7) {
      appendNumber(result, static_cast<std::int32_t>(raw));
    } else {
      appendNumber(result, raw / 100.0, '.');
    }
    return result;
  }

  std::vector<std::string> rows_[kRows];
};

}  // namespace tarnlog::bench
