#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>

#include "platform/plotting/ColumnRows.h"
#include "platform/plotting/ScrollingCanvas.h"

namespace tarnlog {

/// Draws a curve from left to right. What it does within a column becomes one span: each column takes the
/// rows from where the curve enters it to before the one where it enters the next, so that steep lines have
/// no holes and flat ones no double pixels. Columns are drawn many at a time.
class CurvePen {
 public:
  CurvePen(ScrollingCanvas& canvas, const CurveInk& ink) : canvas_(canvas), ink_(ink) {}
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
  /// All that the curve takes of the column on the right of the one before, which it meets halfway; begins a
  /// curve when the pen is lifted.
  void band(std::int64_t column, ColumnRows rows) {
    if (down_) {
      meet(rows_, rows);
      finishColumn();
    }
    down_ = true;
    column_ = column;
    rows_ = rows;
  }
  void lift() {
    if (!down_) return;
    finishColumn();
    flush();
    count_ = drawn_ = 0;
    down_ = false;
  }

 private:
  static void meet(ColumnRows& left, ColumnRows& right) {
    if (left.bottom < right.top - 1) {
      left.bottom = std::midpoint(left.bottom, right.top);
      right.top = left.bottom + 1;
    } else if (right.bottom < left.top - 1) {
      right.bottom = std::midpoint(right.bottom, left.top);
      left.top = right.bottom + 1;
    }
  }
  void cover(int row) {
    rows_.top = std::min(rows_.top, row);
    rows_.bottom = std::max(rows_.bottom, row);
  }
  void putDown(std::int64_t column, double row) {
    down_ = true;
    column_ = column;
    row_ = row;
    rows_.top = rows_.bottom = static_cast<int>(row);
  }
  void advance(std::int64_t column, double row) {
    const double rise = row - row_;
    const double slope = column == column_ + 1 ? rise : rise / static_cast<double>(column - column_);
    double next = row_ + slope / 2;  // where the next column begins
    auto here = static_cast<int>(row_);
    for (; column_ < column; ++column_, next += slope) {
      const auto there = static_cast<int>(next);
      cover(there - (there > here ? 1 : 0) + (there < here ? 1 : 0));
      finishColumn();
      rows_.top = rows_.bottom = here = there;
    }
  }
  void finishColumn() {
    if (count_ == finished_.size()) flush();
    if (count_ == 0) first_ = column_;
    finished_[count_++] = rows_;
  }
  void flush() {
    const std::span<ColumnRows> columns = std::span(finished_).first(count_);
    if (ink_.rim == 0) {
      canvas_.spans(first_, columns, ink_.colour);
      count_ = 0;
    } else {
      canvas_.spansWithRim(first_, columns, drawn_, ink_);
      keepLast(std::min(count_, canvas_.columnsToSpare()));
    }
  }
  /// For the rim of those that follow.
  void keepLast(std::size_t count) {
    first_ += static_cast<std::int64_t>(count_ - count);
    std::copy_n(finished_.begin() + static_cast<std::ptrdiff_t>(count_ - count), count, finished_.begin());
    count_ = drawn_ = count;
  }

  ScrollingCanvas& canvas_;
  CurveInk ink_;
  bool down_ = false;
  std::int64_t column_ = 0;
  double row_ = 0;
  ColumnRows rows_;                       ///< that are covered in the column
  std::array<ColumnRows, 128> finished_;  ///< columns from `first_` on
  std::size_t count_ = 0;
  std::size_t drawn_ = 0;  ///< of them, kept for the rim
  std::int64_t first_ = 0;
};

}  // namespace tarnlog
