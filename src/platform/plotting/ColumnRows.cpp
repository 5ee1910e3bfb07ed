#include "platform/plotting/ColumnRows.h"

#include <algorithm>

namespace tarnlog {

namespace {

constexpr std::size_t kTile = 16;

void fillColumn(std::uint32_t* pixel, std::ptrdiff_t stride, int top, int bottom, std::uint32_t colour) {
  pixel += stride * top;
  for (int y = top; y <= bottom; ++y, pixel += stride) *pixel = colour;
}

/// A loop of a known length, so that several pixels are written at a time.
void fillTile(std::uint32_t* first, std::ptrdiff_t stride, const ColumnRows* columns, std::uint32_t colour) {
  int top = columns[0].top;
  int bottom = columns[0].bottom;
  for (std::size_t i = 1; i < kTile; ++i) {
    top = std::max(top, columns[i].top);
    bottom = std::min(bottom, columns[i].bottom);
  }
  const bool shared = top <= bottom;
  for (std::size_t i = 0; i < kTile; ++i) {
    fillColumn(first + i, stride, columns[i].top, shared ? top - 1 : columns[i].bottom, colour);
    if (shared) fillColumn(first + i, stride, bottom + 1, columns[i].bottom, colour);
  }
  for (int y = top; y <= bottom; ++y)
    for (std::size_t i = 0; i < kTile; ++i) first[stride * y + static_cast<std::ptrdiff_t>(i)] = colour;
}

}  // namespace

void paintColumns(std::uint32_t* first, std::ptrdiff_t stride, std::span<const ColumnRows> columns,
                  std::uint32_t colour) {
  std::size_t i = 0;
  for (; i + kTile <= columns.size(); i += kTile) fillTile(first + i, stride, columns.data() + i, colour);
  for (; i < columns.size(); ++i) fillColumn(first + i, stride, columns[i].top, columns[i].bottom, colour);
}

}  // namespace tarnlog
