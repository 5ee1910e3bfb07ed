#include "records/RecordFigures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace tarnlog {

namespace {

/// Rows `first` to before `last`.
struct Rows {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

Rows rowsIn(const TableGroup& group, const TimeSpan& span) {
  const std::int64_t first = group.firstFrom(span.from);
  const auto newest = group.rowAt(span.till);
  return {first, std::max(first, newest ? *newest + 1 : 0)};
}

constexpr auto passesNone = [](const NumberSummary& block, std::int64_t, std::int64_t) {
  return !block.any();
};

/// The last number before this row.
std::optional<double> numberBefore(const NumberSeries& numbers, std::int64_t first, std::int64_t last) {
  const std::int64_t row =
      numbers.lastWhere(first, last, passesNone, [&](std::int64_t at) { return std::isfinite(numbers[at]); });
  return row < first ? std::nullopt : std::optional(numbers[row]);
}

/// On which side of the level a number is: one that is `ready` may be followed by the crossing.
class Side {
 public:
  explicit Side(const LevelCrossing& crossing) : rising_(crossing.edge == 1), level_(crossing.level) {}

  bool isReady(double number) const { return rising_ ? number < level_ : number > level_; }
  /// That all numbers of a block are on; none when they are on both.
  std::optional<bool> of(const NumberSummary& block) const {
    const bool one = isReady(block.lowest);
    return one == isReady(block.highest) ? std::optional(one) : std::nullopt;
  }

 private:
  bool rising_;
  double level_;
};

}  // namespace

RecordFigures figuresOf(const TableGroup& group, const TableColumn& column, const TimeSpan& span) {
  const Rows rows = rowsIn(group, span);
  const NumberSeries& numbers = column.numbers;
  const NumberSummary sum = numbers.summary(rows.first, rows.last);
  RecordFigures figures;
  figures.count = sum.count;
  if (!sum.any()) return figures;
  const auto timeOf = [&](double number) {
    const std::int64_t row = numbers.firstWhere(
        rows.first, rows.last,
        [&](const NumberSummary& block, std::int64_t, std::int64_t) {
          return !block.any() || number < block.lowest || number > block.highest;
        },
        [&](std::int64_t at) { return numbers[at] == number; });
    return group.times[row];
  };
  figures.lowest = sum.lowest;
  figures.lowestAt = timeOf(sum.lowest);
  figures.highest = sum.highest;
  figures.highestAt = timeOf(sum.highest);
  figures.mean = sum.mean;
  figures.deviation = sum.deviation();
  return figures;
}

MedianSearch::MedianSearch(const TableGroup& group, const TableColumn& column, const TimeSpan& span)
    : numbers_(column.numbers) {
  const Rows rows = rowsIn(group, span);
  next_ = rows.first;
  last_ = rows.last;
}

bool MedianSearch::step(std::int64_t rows) {
  for (const std::int64_t till = std::min(last_, next_ + rows); next_ < till; ++next_)
    if (std::isfinite(numbers_[next_])) found_.push_back(numbers_[next_]);
  if (next_ < last_) return false;
  if (found_.empty()) return true;
  const auto middle = found_.begin() + static_cast<std::ptrdiff_t>(found_.size() / 2);
  std::nth_element(found_.begin(), middle, found_.end());
  median_ = *middle;
  // Halved before they are added: their sum may be beyond a double.
  if (found_.size() % 2 == 0) median_ = *std::max_element(found_.begin(), middle) / 2 + median_ / 2;
  found_ = {};
  return true;
}

namespace {

/// Where gaps leave something of a span.
std::vector<TimeSpan> outsideGaps(const TableRecording& recording, const TimeSpan& span) {
  std::vector<TimeSpan> gaps;
  for (const TableMark& mark : recording.marks)
    if (mark.kind == RecordNote::Kind::Gap && mark.till > mark.time) gaps.push_back({mark.time, mark.till});
  std::sort(gaps.begin(), gaps.end(), [](const TimeSpan& a, const TimeSpan& b) { return a.from < b.from; });
  std::vector<TimeSpan> spans;
  double from = span.from;
  for (const TimeSpan& gap : gaps) {
    if (gap.from > from) spans.push_back({from, std::min(gap.from, span.till)});
    from = std::max(from, gap.till);
    if (gap.from >= span.till) break;
  }
  if (from < span.till) spans.push_back({from, span.till});
  return spans;
}

double secondsAboveWithoutGap(const TableGroup& group, const NumberSeries& numbers, double level,
                              const TimeSpan& span) {
  const auto rowBefore = group.rowAt(span.from);
  const Rows rows = {rowBefore.value_or(0), std::min(group.firstFrom(span.till), group.rows() - 1)};
  double sum = 0;
  const auto held = [&](std::int64_t first, std::int64_t last) {
    sum += std::max(0.0, std::min(group.times[last], span.till) - std::max(group.times[first], span.from));
  };
  numbers.firstWhere(
      rows.first, rows.last,
      [&](const NumberSummary& block, std::int64_t first, std::int64_t last) {
        if (!block.any() || !(block.highest > level)) return true;
        if (block.count != last - first || !(block.lowest > level)) return false;
        held(first, last);
        return true;
      },
      [&](std::int64_t row) {
        if (numbers[row] > level) held(row, row + 1);
        return false;
      });
  return sum;
}

}  // namespace

double secondsAbove(const TableRecording& recording, const TableGroup& group, const TableColumn& column,
                    double level, const TimeSpan& span) {
  double sum = 0;
  for (const TimeSpan& part : outsideGaps(recording, span))
    sum += secondsAboveWithoutGap(group, column.numbers, level, part);
  return sum;
}

std::optional<std::int64_t> nextCrossing(const TableColumn& column, LevelCrossing crossing,
                                         std::int64_t after) {
  if (crossing.edge != 1 && crossing.edge != -1) return std::nullopt;
  const NumberSeries& numbers = column.numbers;
  const Side side(crossing);
  const std::int64_t first = std::clamp<std::int64_t>(after + 1, 0, numbers.size());
  const auto before = numberBefore(numbers, 0, first);
  bool ready = before && side.isReady(*before);
  const std::int64_t row = numbers.firstWhere(
      first, numbers.size(),
      [&](const NumberSummary& block, std::int64_t, std::int64_t) {
        if (!block.any()) return true;
        const auto all = side.of(block);
        if (!all || (ready && !*all)) return false;
        ready = *all;
        return true;
      },
      [&](std::int64_t at) {
        if (!std::isfinite(numbers[at])) return false;
        const bool crossed = ready && !side.isReady(numbers[at]);
        ready = side.isReady(numbers[at]);
        return crossed;
      });
  return row == numbers.size() ? std::nullopt : std::optional(row);
}

std::optional<std::int64_t> previousCrossing(const TableColumn& column, LevelCrossing crossing,
                                             std::int64_t before) {
  if (crossing.edge != 1 && crossing.edge != -1) return std::nullopt;
  const NumberSeries& numbers = column.numbers;
  const Side side(crossing);
  const std::int64_t last = std::clamp<std::int64_t>(before, 0, numbers.size());
  bool laterIsReady = true;
  const std::int64_t ready = numbers.lastWhere(
      0, last,
      [&](const NumberSummary& block, std::int64_t, std::int64_t) {
        if (!block.any()) return true;
        const auto all = side.of(block);
        if (!all || (*all && !laterIsReady)) return false;
        laterIsReady = *all;
        return true;
      },
      [&](std::int64_t at) {
        if (!std::isfinite(numbers[at])) return false;
        const bool isReady = side.isReady(numbers[at]);
        const bool crosses = isReady && !laterIsReady;
        laterIsReady = isReady;
        return crosses;
      });
  if (ready < 0) return std::nullopt;
  return numbers.firstWhere(ready + 1, last, passesNone,
                            [&](std::int64_t at) { return std::isfinite(numbers[at]); });
}

namespace {

/// What a row shows: its label or text, or its number when that has none.
class Shown {
 public:
  explicit Shown(const TableColumn& column) : column_(column) {}

  bool any(std::int64_t row) const { return isNumber(row) || column_.textIds[row] != 0; }
  /// Whether no row of a block shows anything.
  bool none(const NumberSummary& block) const { return !block.any() && column_.texts.empty(); }
  bool differ(std::int64_t a, std::int64_t b) const {
    if (!column_.isEnumeration()) return column_.numbers[a] != column_.numbers[b];
    const std::string_view label = column_.labelOf(a);
    if (label != column_.labelOf(b)) return true;
    return label.empty() && column_.numbers[a] != column_.numbers[b];
  }
  /// Whether all rows of a block show what this one does.
  bool sameAs(std::int64_t row, const NumberSummary& block, std::int64_t rows) const {
    if (!column_.texts.empty() && block.count != rows) return false;
    return !block.any() || (block.lowest == block.highest && column_.numbers[row] == block.lowest);
  }

 private:
  bool isNumber(std::int64_t row) const { return std::isfinite(column_.numbers[row]); }

  const TableColumn& column_;
};

}  // namespace

std::optional<std::int64_t> nextChange(const TableColumn& column, std::int64_t after) {
  const NumberSeries& numbers = column.numbers;
  const Shown shown(column);
  const std::int64_t first = std::clamp<std::int64_t>(after + 1, 0, numbers.size());
  std::int64_t before = numbers.lastWhere(
      0, first, [&](const NumberSummary& block, std::int64_t, std::int64_t) { return shown.none(block); },
      [&](std::int64_t at) { return shown.any(at); });
  const std::int64_t row = numbers.firstWhere(
      first, numbers.size(),
      [&](const NumberSummary& block, std::int64_t from, std::int64_t till) {
        return before < 0 ? shown.none(block) : shown.sameAs(before, block, till - from);
      },
      [&](std::int64_t at) {
        if (!shown.any(at)) return false;
        const bool changed = before >= 0 && shown.differ(before, at);
        before = at;
        return changed;
      });
  return row == numbers.size() ? std::nullopt : std::optional(row);
}

std::optional<std::int64_t> previousChange(const TableColumn& column, std::int64_t before) {
  const NumberSeries& numbers = column.numbers;
  const Shown shown(column);
  const std::int64_t last = std::clamp<std::int64_t>(before, 0, numbers.size());
  std::int64_t later = -1;
  const std::int64_t other = numbers.lastWhere(
      0, last,
      [&](const NumberSummary& block, std::int64_t from, std::int64_t till) {
        return later < 0 ? shown.none(block) : shown.sameAs(later, block, till - from);
      },
      [&](std::int64_t at) {
        if (!shown.any(at)) return false;
        const bool changes = later >= 0 && shown.differ(at, later);
        later = at;
        return changes;
      });
  if (other < 0) return std::nullopt;
  // `later` is this one now; the change is the next row that shows anything.
  return numbers.firstWhere(
      other + 1, last,
      [&](const NumberSummary& block, std::int64_t, std::int64_t) { return shown.none(block); },
      [&](std::int64_t at) { return shown.any(at); });
}

std::optional<std::int64_t> largestStep(const TableGroup& group, const TableColumn& column,
                                        const TimeSpan& span) {
  const NumberSeries& numbers = column.numbers;
  const Rows rows = rowsIn(group, span);
  std::optional<std::int64_t> best;
  double largest = 0;
  std::optional<double> before;
  numbers.firstWhere(
      rows.first, rows.last,
      [&](const NumberSummary& block, std::int64_t first, std::int64_t last) {
        if (!block.any()) return true;
        const double lowest = std::min(block.lowest, before.value_or(block.lowest));
        const double highest = std::max(block.highest, before.value_or(block.highest));
        if (highest - lowest > largest) return false;
        before = numberBefore(numbers, first, last);
        return true;
      },
      [&](std::int64_t at) {
        if (!std::isfinite(numbers[at])) return false;
        const double step = before ? std::abs(numbers[at] - *before) : 0;
        before = numbers[at];
        if (step > largest) {
          largest = step;
          best = at;
        }
        return false;
      });
  return best;
}

}  // namespace tarnlog
