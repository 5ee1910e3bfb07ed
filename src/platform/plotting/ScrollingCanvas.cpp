#include "platform/plotting/ScrollingCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnlog {

void ScrollingCanvas::resize(int width, int height) {
  width_ = std::max(width, 1);
  height_ = std::max(height, 1);
  pixels_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), 0);
}

void ScrollingCanvas::fillColumns(std::int64_t from, std::int64_t to, std::uint32_t colour) {
  for (int y = 0; y < height_; ++y) row(y, from, to, colour);
}

void ScrollingCanvas::row(int row, std::int64_t from, std::int64_t to, std::uint32_t colour) {
  if (row < 0 || row >= height_) return;
  from = std::max(from, first_);
  to = std::min(to, first_ + width_);
  if (from >= to) return;
  std::uint32_t* const start =
      pixels_.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(width_);
  const int begin = place(from);
  const auto count = static_cast<int>(to - from);
  const int beforeSeam = std::min(count, width_ - begin);
  std::fill_n(start + begin, beforeSeam, colour);
  std::fill_n(start, count - beforeSeam, colour);
}

void ScrollingCanvas::span(std::int64_t column, double top, double bottom, std::uint32_t colour) {
  if (top > bottom) std::swap(top, bottom);
  if (bottom < 0 || top > height_ - 1 + pen_) return;
  const int from = static_cast<int>(std::max(top, 0.0));
  const int to = std::min(static_cast<int>(std::min(bottom, height_ + 0.0)) + pen_ - 1, height_ - 1);
  const std::int64_t left = std::max(column - pen_ + 1, first_);
  for (std::int64_t x = left; x <= column && x < first_ + width_; ++x) {
    std::uint32_t* pixel = pixels_.data() + index(x, 0) + static_cast<std::ptrdiff_t>(from) * width_;
    for (int y = from; y <= to; ++y, pixel += width_) *pixel = colour;
  }
}

void ScrollingCanvas::line(double x0, double y0, double x1, double y1, std::uint32_t colour) {
  if (x0 > x1) {
    std::swap(x0, x1);
    std::swap(y0, y1);
  }
  const auto first = static_cast<double>(first_);
  if (x1 < first || x0 >= first + width_) return;
  const double from = std::floor(std::max(x0, first));
  const double to = std::floor(std::min(x1, first + width_ - 1));
  if (std::floor(x0) == std::floor(x1)) return span(static_cast<std::int64_t>(from), y0, y1, colour);
  const double slope = (y1 - y0) / (x1 - x0);
  const double low = std::min(y0, y1);
  const double high = std::max(y0, y1);
  // Each column takes the part of the line inside it, so that steep lines have no holes.
  double entry = std::clamp(y0 + slope * (from - 0.5 - x0), low, high);
  for (double x = from; x <= to; ++x) {
    const double exit = std::clamp(y0 + slope * (x + 0.5 - x0), low, high);
    span(static_cast<std::int64_t>(x), entry, exit, colour);
    entry = exit;
  }
}

}  // namespace tarnlog
