#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/plotting/ScrollingCanvas.h"

namespace tarnlog {

/// Draws a curve from left to right. What it does within a column becomes one span: each column takes the
/// rows from where the curve enters it to before the one where it enters the next, so that steep lines have
/// no holes and flat ones no double pixels.
class CurvePen {
 public:
  CurvePen(ScrollingCanvas& canvas, std::uint32_t colour) : canvas_(canvas), colour_(colour) {}
  ~CurvePen() { lift(); }
  CurvePen(const CurvePen&) = delete;
  CurvePen& operator=(const CurvePen&) = delete;

  bool isDown() const { return down_; }
  /// A line to the same column or one on the right; begins one when the pen is lifted. The whole part
  /// of a row is the pixel's number.
  void draw(std::int64_t column, double row) {
    if (!down_) return putDown(column, row);
    if (column > column_) advance(column, row);
    cover(static_cast<int>(row));
    row_ = row;
  }
  /// Takes in these rows, wherever the line goes.
  void cover(int row) {
    top_ = std::min(top_, row);
    bottom_ = std::max(bottom_, row);
  }
  void lift() {
    if (down_) canvas_.span(column_, top_, bottom_, colour_);
    down_ = false;
  }

 private:
  void putDown(std::int64_t column, double row) {
    down_ = true;
    column_ = column;
    row_ = row;
    top_ = bottom_ = static_cast<int>(row);
  }
  void advance(std::int64_t column, double row) {
    const double rise = row - row_;
    const double slope = column == column_ + 1 ? rise : rise / static_cast<double>(column - column_);
    double next = row_ + slope / 2;  // where the next column begins
    auto here = static_cast<int>(row_);
    for (; column_ < column; ++column_, next += slope) {
      const auto there = static_cast<int>(next);
      cover(there - (there > here ? 1 : 0) + (there < here ? 1 : 0));
      canvas_.span(column_, top_, bottom_, colour_);
      top_ = bottom_ = here = there;
    }
  }

  ScrollingCanvas& canvas_;
  std::uint32_t colour_;
  bool down_ = false;
  std::int64_t column_ = 0;
  double row_ = 0;
  int top_ = 0;  ///< rows that are covered in the column, both included
  int bottom_ = 0;
};

}  // namespace tarnlog
