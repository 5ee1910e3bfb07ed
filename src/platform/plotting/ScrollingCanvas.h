#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/plotting/ColumnRows.h"

namespace tarnlog {

/// A small picture, row by row (0xffRRGGBB); its owner keeps the pixels.
struct Stamp {
  int width = 0;
  int height = 0;
  std::span<const std::uint32_t> pixels;
};

/// The pixels of a curve, and of the rim around it; 0: none.
struct CurveInk {
  std::uint32_t colour = 0;
  std::uint32_t rim = 0;
};

/// The picture of a chart, written pixel by pixel (0xffRRGGBB). Columns have numbers that never change; the
/// canvas shows `width` of them from `firstColumn`. Scrolling moves no pixel: a column is stored at its
/// number modulo the width, so what shows the picture draws two pieces.
class ScrollingCanvas {
 public:
  /// Sizes below 1 count as 1. Everything is to be drawn anew.
  void resize(int width, int height);
  int width() const { return width_; }
  int height() const { return height_; }
  /// Width of lines in pixels, at least 1. Wider lines reach to the left and downwards of their place.
  void setPen(int pixels) { pen_ = pixels < 1 ? 1 : pixels; }
  int pen() const { return pen_; }
  /// Pixels by which everything drawn with the pen in one colour is wider on each side: a rim behind the
  /// curve that follows.
  void setHalo(int pixels) { halo_ = pixels; }
  /// Columns beside a point that its dot or its line's width may take.
  int reach() const { return 3 * pen_; }

  /// Not negative. All columns that are shown can be drawn on.
  void setFirstColumn(std::int64_t column);
  /// Columns before this one stay as they are.
  void protectBefore(std::int64_t column) { drawable_ = std::max(column, first_); }
  std::int64_t firstColumn() const { return first_; }
  std::int64_t endColumn() const { return first_ + width_; }
  /// Where the first column is stored.
  int seam() const { return seam_; }
  const std::uint32_t* pixels() const { return pixels_.data(); }
  std::uint32_t at(std::int64_t column, int row) const {
    return pixels_[static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(place(column))];
  }

  // What lies outside, or in protected columns, is cut off.
  void fillColumns(std::int64_t from, std::int64_t to, std::uint32_t colour);
  /// One row, over columns `from` to before `to`.
  void row(int row, std::int64_t from, std::int64_t to, std::uint32_t colour);
  /// A column over all rows, one pixel wide.
  void column(std::int64_t column, std::uint32_t colour);
  /// Rows `top` to `bottom` of one column, whatever their order.
  void span(std::int64_t column, int top, int bottom, std::uint32_t colour);
  /// The same for columns from `from` on, each of whose rows touch those of the next.
  void spans(std::int64_t from, std::span<const ColumnRows> columns, std::uint32_t colour);
  /// The same with a rim as wide as the pen, each pixel written once. The first columns, `drawn` in number,
  /// stand already, and the rim spares them. With `columnsToSpare` of them the picture is that of one call.
  void spansWithRim(std::int64_t from, std::span<const ColumnRows> columns, std::size_t drawn,
                    const CurveInk& ink);
  std::size_t columnsToSpare() const { return static_cast<std::size_t>(3 * pen_ - 1); }
  /// A line between two points, ends included; the whole part of a coordinate is the pixel's number.
  void line(double x0, double y0, double x1, double y1, std::uint32_t colour);
  /// A column of which every `step`th pixel is drawn.
  void dotted(std::int64_t column, int step, std::uint32_t colour);
  /// With its upper left corner there.
  void stamp(std::int64_t column, int row, const Stamp& stamp);

  /// All columns can be drawn on until `endOverlay` takes back what `dotted` and `stamp` draw in between;
  /// nothing else is taken back.
  void beginOverlay();
  void endOverlay();

  /// A point that is seen without a line.
  void dot(std::int64_t column, int row, std::uint32_t colour);

 private:
  void set(std::uint32_t* pixel, std::uint32_t colour) {
    if (overlay_) covered_.emplace_back(pixel, *pixel);
    *pixel = colour;
  }
  void copy(std::span<const std::uint32_t> pixels, std::uint32_t* to);
  struct Stretch {
    std::int64_t from = 0;
    std::int64_t to = 0;
    bool any() const { return from < to; }
  };
  Stretch shown(std::int64_t from, std::int64_t to) const {
    return {std::max(from, drawable_), std::min(to, endColumn())};
  }
  void widen(std::int64_t from, std::span<const ColumnRows> columns, const Stretch& stretch, int halo,
             std::vector<ColumnRows>& widened) const;
  void paint(const Stretch& stretch, std::span<const ColumnRows> rows, std::uint32_t colour);
  int place(std::int64_t column) const {
    const auto stored = static_cast<int>(column - first_) + seam_;
    return stored < width_ ? stored : stored - width_;
  }

  int width_ = 1;
  int height_ = 1;
  int pen_ = 1;
  int halo_ = 0;
  int seam_ = 0;
  std::int64_t first_ = 0;
  std::int64_t drawable_ = 0;  ///< first column that is not protected
  bool overlay_ = false;
  std::vector<ColumnRows> widened_;  ///< scratch, as the next two
  std::vector<ColumnRows> above_;    ///< rim over the curve
  std::vector<ColumnRows> below_;    ///< rim under the curve
  std::vector<std::pair<std::uint32_t*, std::uint32_t>>
      covered_;  ///< by the overlay, in the order of its drawing
  std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(1);
};

inline void ScrollingCanvas::span(std::int64_t column, int top, int bottom, std::uint32_t colour) {
  if (top > bottom) std::swap(top, bottom);
  const int from = std::max(top - halo_, 0);
  const int to = std::min(bottom + pen_ - 1 + halo_, height_ - 1);
  if (from > to) return;
  const std::ptrdiff_t stride = width_;
  std::uint32_t* const start = pixels_.data() + from * stride;
  for (std::int64_t x = column - pen_ + 1 - halo_; x <= column + halo_; ++x) {
    if (x < drawable_ || x >= endColumn()) continue;
    std::uint32_t* pixel = start + place(x);
    for (int y = from; y <= to; ++y, pixel += stride) *pixel = colour;
  }
}

}  // namespace tarnlog
