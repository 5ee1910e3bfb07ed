#pragma once

#include <cstdint>
#include <vector>

namespace tarnlog {

/// The picture of a chart, written pixel by pixel (0xffRRGGBB). Columns have numbers that never change; the
/// canvas shows `width` of them from `firstColumn`. Scrolling moves no pixel: a column is stored at its
/// number modulo the width, so what shows the picture draws two pieces.
class ScrollingCanvas {
 public:
  /// Sizes below 1 count as 1. Everything is to be drawn anew.
  void resize(int width, int height);
  int width() const { return width_; }
  int height() const { return height_; }
  /// Width of lines in pixels, at least 1.
  void setPen(int pixels) { pen_ = pixels < 1 ? 1 : pixels; }

  std::int64_t firstColumn() const { return first_; }
  void setFirstColumn(std::int64_t column) { first_ = column; }
  /// Where the first column is stored.
  int seam() const { return place(first_); }
  const std::uint32_t* pixels() const { return pixels_.data(); }
  std::uint32_t at(std::int64_t column, int row) const { return pixels_[index(column, row)]; }

  void fillColumns(std::int64_t from, std::int64_t to, std::uint32_t colour);
  /// One row, over columns `from` to before `to`.
  void row(int row, std::int64_t from, std::int64_t to, std::uint32_t colour);
  /// Rows `top` to `bottom` of one column, whatever their order; what lies outside is cut off.
  void span(std::int64_t column, double top, double bottom, std::uint32_t colour);
  /// A line between two points, ends included; coordinates are finite.
  void line(double x0, double y0, double x1, double y1, std::uint32_t colour);

 private:
  int place(std::int64_t column) const {
    const auto rest = static_cast<int>(column % width_);
    return rest < 0 ? rest + width_ : rest;
  }
  std::size_t index(std::int64_t column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(place(column));
  }

  int width_ = 1;
  int height_ = 1;
  int pen_ = 1;
  std::int64_t first_ = 0;
  std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(1);
};

}  // namespace tarnlog
