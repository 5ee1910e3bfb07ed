#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "config/LevelCrossing.h"
#include "records/RecordTable.h"

/// What is measured on a column between two times, in seconds. Rows count whose time is from `from` to
/// `till`, both included; rows without a number do not count.
namespace tarnlog {

struct TimeSpan {
  double from = 0;
  double till = 0;
  double length() const { return till - from; }
};

struct RecordFigures {
  std::int64_t count = 0;
  double lowest = std::numeric_limits<double>::quiet_NaN();
  double lowestAt = std::numeric_limits<double>::quiet_NaN();  ///< the first time it was that low
  double highest = std::numeric_limits<double>::quiet_NaN();
  double highestAt = std::numeric_limits<double>::quiet_NaN();
  double mean = std::numeric_limits<double>::quiet_NaN();       ///< of the rows, each counting once
  double deviation = std::numeric_limits<double>::quiet_NaN();  ///< of a sample (n - 1)
};

/// Costs a look at some hundred summaries, however long the span is.
RecordFigures figuresOf(const TableGroup& group, const TableColumn& column, const TimeSpan& span);

/// Finds the median in pieces, so that a window stays alive: `step` looks at so many rows and returns whether
/// it is found. Of an even number of rows, it is the mean of the middle two.
class MedianSearch {
 public:
  MedianSearch(const TableGroup& group, const TableColumn& column, const TimeSpan& span);
  bool step(std::int64_t rows);
  /// NaN until found, and when no row has a number.
  double median() const { return median_; }

 private:
  NumberSeries numbers_;
  std::int64_t next_ = 0;
  std::int64_t last_ = 0;
  std::vector<double> found_;
  double median_ = std::numeric_limits<double>::quiet_NaN();
};

/// Seconds for which the number was above the level (>), each number holding from its row to the next one; a
/// row without a number, and a gap, hold for no time. Rows far from the level are passed over in blocks.
double secondsAbove(const TableRecording& recording, const TableGroup& group, const TableColumn& column,
                    double level, const TimeSpan& span);

/// The first row behind `after` where the number crosses the level, by the rule of the triggers: rows without
/// a number are passed over.
std::optional<std::int64_t> nextCrossing(const TableColumn& column, LevelCrossing crossing,
                                         std::int64_t after);
/// The last one before `before`.
std::optional<std::int64_t> previousCrossing(const TableColumn& column, LevelCrossing crossing,
                                             std::int64_t before);
/// The first row behind `after` (the last one before `before`) whose value differs from the one before it:
/// number, label or text. Rows without a value are passed over.
std::optional<std::int64_t> nextChange(const TableColumn& column, std::int64_t after);
std::optional<std::int64_t> previousChange(const TableColumn& column, std::int64_t before);
/// The row, between these times, that differs most from the one before it.
std::optional<std::int64_t> largestStep(const TableGroup& group, const TableColumn& column,
                                        const TimeSpan& span);

}  // namespace tarnlog
