#include "platform/plotting/ScrollingCanvas.h"

#include <algorithm>
#include <utility>

namespace tarnlog {

void ScrollingCanvas::resize(int width, int height) {
  width_ = std::max(width, 1);
  height_ = std::max(height, 1);
  pixels_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), 0);
  setFirstColumn(first_);
}

void ScrollingCanvas::setFirstColumn(std::int64_t column) {
  first_ = column;
  drawable_ = column;
  seam_ = static_cast<int>(column % width_);
}

void ScrollingCanvas::fillColumns(std::int64_t from, std::int64_t to, std::uint32_t colour) {
  for (int y = 0; y < height_; ++y) row(y, from, to, colour);
}

void ScrollingCanvas::row(int row, std::int64_t from, std::int64_t to, std::uint32_t colour) {
  if (row < 0 || row >= height_) return;
  from = std::max(from, drawable_);
  to = std::min(to, endColumn());
  if (from >= to) return;
  std::uint32_t* const start =
      pixels_.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(width_);
  const int begin = place(from);
  const auto count = static_cast<int>(to - from);
  const int beforeSeam = std::min(count, width_ - begin);
  std::fill_n(start + begin, beforeSeam, colour);
  std::fill_n(start, count - beforeSeam, colour);
}

void ScrollingCanvas::column(std::int64_t column, std::uint32_t colour) {
  if (column < drawable_ || column >= endColumn()) return;
  const std::ptrdiff_t stride = width_;
  std::uint32_t* pixel = pixels_.data() + place(column);
  for (int y = 0, rows = height_; y < rows; ++y, pixel += stride) *pixel = colour;
}

/// What a wider line, with a rim of `halo` pixels, takes of each column of the stretch: what its neighbours
/// take, too. Since they touch, that is one stretch of rows; top > bottom where it is none.
void ScrollingCanvas::widen(std::int64_t from, std::span<const ColumnRows> columns, const Stretch& stretch,
                            int halo, std::vector<ColumnRows>& widened) const {
  const auto count = static_cast<std::int64_t>(columns.size());
  widened.clear();
  for (std::int64_t x = stretch.from; x < stretch.to; ++x) {
    const std::int64_t first = std::max<std::int64_t>(x - halo - from, 0);
    const std::int64_t last = std::min(x + pen_ - 1 + halo - from, count - 1);
    if (first > last) {
      widened.push_back({0, -1});
      continue;
    }
    ColumnRows rows = columns[static_cast<std::size_t>(first)];
    for (std::int64_t i = first + 1; i <= last; ++i) {
      rows.top = std::min(rows.top, columns[static_cast<std::size_t>(i)].top);
      rows.bottom = std::max(rows.bottom, columns[static_cast<std::size_t>(i)].bottom);
    }
    widened.push_back({std::max(rows.top - halo, 0), std::min(rows.bottom + pen_ - 1 + halo, height_ - 1)});
  }
}

void ScrollingCanvas::paint(const Stretch& stretch, std::span<const ColumnRows> rows, std::uint32_t colour) {
  const int start = place(stretch.from);
  const auto beforeSeam = std::min(rows.size(), static_cast<std::size_t>(width_ - start));
  paintColumns(pixels_.data() + start, width_, rows.first(beforeSeam), colour);
  paintColumns(pixels_.data(), width_, rows.subspan(beforeSeam), colour);
}

void ScrollingCanvas::spans(std::int64_t from, std::span<const ColumnRows> columns, std::uint32_t colour) {
  const auto count = static_cast<std::int64_t>(columns.size());
  const Stretch stretch = shown(from - pen_ + 1 - halo_, from + count + halo_);
  if (!stretch.any()) return;
  widen(from, columns, stretch, halo_, widened_);
  paint(stretch, widened_, colour);
}

void ScrollingCanvas::spansWithRim(std::int64_t from, std::span<const ColumnRows> columns, std::size_t drawn,
                                   const CurveInk& ink) {
  const auto count = static_cast<std::int64_t>(columns.size());
  const std::int64_t fresh = from + static_cast<std::int64_t>(drawn);
  const Stretch stretch = shown(fresh - 2 * pen_ + 1, from + count + pen_);
  if (!stretch.any()) return;
  widen(from, columns, stretch, pen_, above_);
  widen(from, columns, stretch, 0, widened_);
  below_ = above_;
  for (std::size_t i = 0; i < widened_.size(); ++i) {
    const ColumnRows& curve = widened_[i];
    if (curve.top > curve.bottom) {
      below_[i].bottom = -1;
      continue;
    }
    above_[i].bottom = curve.top - 1;
    below_[i].top = curve.bottom + 1;
  }
  paint(stretch, above_, ink.rim);
  paint(stretch, below_, ink.rim);
  paint(stretch, widened_, ink.colour);
}

void ScrollingCanvas::line(double x0, double y0, double x1, double y1, std::uint32_t colour) {
  if (x0 > x1) {
    std::swap(x0, x1);
    std::swap(y0, y1);
  }
  const auto left = static_cast<double>(first_);
  const auto right = static_cast<double>(endColumn() - 1);
  if (x1 < left || x0 >= right + 1) return;
  const auto from = static_cast<std::int64_t>(std::max(x0, left));
  const auto to = static_cast<std::int64_t>(std::min(x1, right));
  if (x1 - x0 < 1) return span(from, static_cast<int>(y0), static_cast<int>(y1), colour);
  // A column takes the rows from where the line enters it to before the one where it enters the next, so that
  // steep lines have no holes and flat ones no double pixels.
  const double slope = (y1 - y0) / (x1 - x0);
  double next = y0 + slope * (static_cast<double>(from) + 0.5 - x0);
  auto row = static_cast<int>(x0 < left ? next - slope : y0);
  for (std::int64_t column = from; column < to; ++column, next += slope) {
    const auto nextRow = static_cast<int>(next);
    span(column, row, nextRow > row ? nextRow - 1 : nextRow < row ? nextRow + 1 : row, colour);
    row = nextRow;
  }
  span(to, row, static_cast<int>(x1 >= right + 1 ? next : y1), colour);
}

void ScrollingCanvas::dotted(std::int64_t column, int step, std::uint32_t colour) {
  if (column < drawable_ || column >= endColumn()) return;
  const std::ptrdiff_t stride = std::ptrdiff_t{width_} * step;
  std::uint32_t* pixel = pixels_.data() + place(column);
  for (int y = 0; y < height_; y += step, pixel += stride) set(pixel, colour);
}

void ScrollingCanvas::stamp(std::int64_t column, int row, const Stamp& stamp) {
  const std::int64_t left = std::clamp<std::int64_t>(drawable_ - column, 0, stamp.width);
  const std::int64_t right = std::clamp<std::int64_t>(endColumn() - column, left, stamp.width);
  if (left == right) return;
  const int start = place(column + left);
  const auto count = static_cast<std::size_t>(right - left);
  const std::size_t beforeSeam = std::min(count, static_cast<std::size_t>(width_ - start));
  for (int y = std::max(0, -row); y < stamp.height && row + y < height_; ++y) {
    std::uint32_t* const line = pixels_.data() + std::ptrdiff_t{row + y} * width_;
    const auto pixels =
        stamp.pixels.subspan(static_cast<std::size_t>(std::int64_t{y} * stamp.width + left), count);
    copy(pixels.first(beforeSeam), line + start);
    copy(pixels.subspan(beforeSeam), line);
  }
}

void ScrollingCanvas::copy(std::span<const std::uint32_t> pixels, std::uint32_t* to) {
  for (std::size_t i = 0; overlay_ && i < pixels.size(); ++i) covered_.emplace_back(to + i, to[i]);
  std::ranges::copy(pixels, to);
}

void ScrollingCanvas::beginOverlay() {
  overlay_ = true;
  drawable_ = first_;
}

void ScrollingCanvas::endOverlay() {
  overlay_ = false;
  std::for_each(covered_.rbegin(), covered_.rend(), [](const auto& each) { *each.first = each.second; });
  covered_.clear();
}

void ScrollingCanvas::dot(std::int64_t column, int row, std::uint32_t colour) {
  for (std::int64_t x = column - pen_; x <= column + pen_; ++x) span(x, row - pen_, row + pen_, colour);
}

}  // namespace tarnlog
