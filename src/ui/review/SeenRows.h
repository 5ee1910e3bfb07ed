#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// The pixel columns over which a stretch of time is drawn.
struct TimeColumns {
  TimeSpan span;
  int count = 1;
  double columnOf(double time) const { return (time - span.from) * count / span.length(); }
  double timeOf(double column) const { return span.from + column * span.length() / count; }
};

/// The rows of a group that are seen, column by column. All curves of the group share them.
class SeenRows {
 public:
  SeenRows(const LookedAtRecord& record, const TableGroup& group, const TimeColumns& columns);

  const TableGroup& group() const { return *group_; }
  int columns() const { return columns_.count; }
  std::int64_t first() const { return edges_.front(); }
  std::int64_t last() const { return edges_.back(); }  ///< behind the last one
  std::int64_t rows() const { return last() - first(); }
  /// The first row of a column; that of the column behind it ends it. `column` in 0 to columns().
  std::int64_t edge(int column) const { return edges_[static_cast<std::size_t>(column)]; }
  /// From the left edge of column 0.
  double columnOf(std::int64_t row) const { return columns_.columnOf(timeOf(row)); }
  double timeOf(std::int64_t row) const { return group_->times[row] + offset_; }
  /// Curves are broken between the row and the one before it: after a pause, and where the record tells a
  /// gap.
  bool brokenBefore(std::int64_t row) const;
  /// The same for the first row from this column on.
  bool brokenAt(int column) const { return broken_[static_cast<std::size_t>(column)]; }

 private:
  std::int64_t search(std::int64_t low, std::int64_t high, std::int64_t guess, double time) const;

  const TableGroup* group_;
  double offset_;
  TimeColumns columns_;
  double longest_;  ///< step without a break
  std::vector<TimeSpan> gaps_;
  std::vector<std::int64_t> edges_;
  std::vector<bool> broken_;
};

/// What of all groups is seen, each found once for all graphs that are as wide.
class SeenRecords {
 public:
  /// The records have changed.
  void forget() { groups_.clear(); }
  void see(const TimeColumns& columns);
  /// Valid until `see` or `forget`.
  const SeenRows& rows(const ReviewScene& scene, const CurvePlace& place);
  const TimeColumns& columns() const { return columns_; }

 private:
  TimeColumns columns_;
  std::map<std::pair<std::size_t, std::size_t>, SeenRows> groups_;  ///< of record and group
};

}  // namespace tarnlog
