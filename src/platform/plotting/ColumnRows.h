#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tarnlog {

/// What a curve takes of a column, both rows included.
struct ColumnRows {
  int top = 0;
  int bottom = 0;
};

/// Writes the rows of columns that lie beside each other in memory: `first` is row 0 of the leftmost, a row
/// is `stride` pixels long. Rows are inside the picture, or top > bottom. The pixels are those of a loop over
/// each column; what neighbours share is written row by row, as memory likes it.
void paintColumns(std::uint32_t* first, std::ptrdiff_t stride, std::span<const ColumnRows> columns,
                  std::uint32_t colour);

}  // namespace tarnlog
