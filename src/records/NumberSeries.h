#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "platform/base/GrowingList.h"

namespace tarnlog {

/// Count, lowest, highest, mean and spread of numbers; those that are not finite do not count.
struct NumberSummary {
  std::int64_t count = 0;
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -std::numeric_limits<double>::infinity();
  double mean = 0;
  double squares = 0;  ///< sum of squared distances from the mean

  bool any() const { return count != 0; }
  void add(double number);
  /// As if the numbers of both had been added (Chan, Golub and LeVeque's rule).
  void add(const NumberSummary& other);
  /// Count, lowest and highest alone.
  void addExtremes(const NumberSummary& other);
  /// Standard deviation of a sample (n - 1); NaN of fewer than two.
  double deviation() const;
};

/// The numbers of a column, from row 0 on; NaN where a row has none. They only grow. Summaries of blocks are
/// made as they come, so that asking about millions of rows costs a look at some hundred. A copy shares what
/// is stored and never changes: one thread may go on adding to the original while another one reads the copy.
class NumberSeries {
 public:
  static constexpr std::int64_t kBlock = 128;   ///< rows of the smallest summary
  static constexpr std::int64_t kChunk = 8192;  ///< rows of the largest

  void append(double number) {
    numbers_.append(number);
    if (size() % kBlock == 0) closeBlock();
  }
  /// Every `stride`th number from there on, so many of them.
  void append(const double* numbers, std::size_t stride, std::int64_t count);
  std::int64_t size() const { return static_cast<std::int64_t>(numbers_.size()); }
  /// `row` in 0 to size() - 1.
  double operator[](std::int64_t row) const { return numbers_[static_cast<std::size_t>(row)]; }
  /// Of rows `first` to before `last`, which lie inside.
  NumberSummary summary(std::int64_t first, std::int64_t last) const;
  /// Count, lowest and highest alone, which costs less.
  NumberSummary extremes(std::int64_t first, std::int64_t last) const;

  /// The first row from `first` to before `last` that `holds(row)`; `last` when there is none. Blocks for
  /// which `passes(summary, first, last)`, of their rows, is true are passed over: the largest ones first.
  template <class Passes, class Holds>
  std::int64_t firstWhere(std::int64_t first, std::int64_t last, Passes&& passes, Holds&& holds) const;
  /// The last one, going backwards; `first` - 1 when there is none.
  template <class Passes, class Holds>
  std::int64_t lastWhere(std::int64_t first, std::int64_t last, Passes&& passes, Holds&& holds) const;

 private:
  static constexpr std::array<std::int64_t, 3> kRows = {kBlock, 1024, kChunk};  ///< of a level's summaries

  void closeBlock();
  const NumberSummary& block(std::size_t level, std::int64_t row) const {
    return levels_[level][static_cast<std::size_t>(row / kRows[level])];
  }

  GrowingList<double, kChunk> numbers_;
  std::array<GrowingList<NumberSummary, 64>, kRows.size()> levels_;
};

template <class Passes, class Holds>
std::int64_t NumberSeries::firstWhere(std::int64_t first, std::int64_t last, Passes&& passes,
                                      Holds&& holds) const {
  for (std::int64_t row = first; row < last;) {
    std::int64_t passed = 0;
    for (std::size_t level = kRows.size(); passed == 0 && row % kBlock == 0 && level-- != 0;) {
      const std::int64_t rows = kRows[level];
      if (row % rows == 0 && row + rows <= last && passes(block(level, row), row, row + rows)) passed = rows;
    }
    row += passed;
    if (passed != 0) continue;
    const std::int64_t till = std::min(last, (row / kBlock + 1) * kBlock);
    for (; row < till; ++row)
      if (holds(row)) return row;
  }
  return last;
}

template <class Passes, class Holds>
std::int64_t NumberSeries::lastWhere(std::int64_t first, std::int64_t last, Passes&& passes,
                                     Holds&& holds) const {
  for (std::int64_t end = last; end > first;) {
    std::int64_t passed = 0;
    for (std::size_t level = kRows.size(); passed == 0 && end % kBlock == 0 && level-- != 0;) {
      const std::int64_t rows = kRows[level];
      if (end % rows == 0 && end - rows >= first && passes(block(level, end - rows), end - rows, end))
        passed = rows;
    }
    end -= passed;
    if (passed != 0) continue;
    const std::int64_t from = std::max(first, (end - 1) / kBlock * kBlock);
    for (; end > from; --end)
      if (holds(end - 1)) return end - 1;
  }
  return first - 1;
}

}  // namespace tarnlog
