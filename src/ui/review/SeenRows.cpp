#include "ui/review/SeenRows.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "ui/review/RowSteps.h"

namespace tarnlog {
namespace {

std::vector<TimeSpan> gapsOf(const TableRecording& recording) {
  std::vector<TimeSpan> gaps;
  for (const TableMark& mark : recording.marks)
    if (mark.kind == RecordNote::Kind::Gap) gaps.push_back({mark.time, mark.till});
  std::ranges::sort(gaps, {}, &TimeSpan::from);
  return gaps;
}

}  // namespace

SeenRows::SeenRows(const LookedAtRecord& record, const TableGroup& group, const TimeColumns& columns)
    : group_(&group),
      offset_(record.offset),
      columns_(columns),
      longest_(longestStep(usualStep(group))),
      gaps_(gapsOf(record.recordingTable())) {
  const auto count = static_cast<std::size_t>(columns.count);
  edges_.resize(count + 1);
  edges_[0] = group.firstFrom(columns.span.from - offset_);
  edges_[count] =
      group.firstFrom(std::nextafter(columns.span.till - offset_, std::numeric_limits<double>::infinity()));
  for (std::size_t i = 1; i < count; ++i) {
    const std::int64_t low = edges_[i - 1];
    const std::int64_t guess = low + (last() - low) / static_cast<std::int64_t>(count - i + 1);
    edges_[i] = search(low, last(), guess, columns.timeOf(static_cast<double>(i)) - offset_);
  }
  broken_.resize(count + 1);
  for (std::size_t i = 0; i <= count; ++i) broken_[i] = brokenBefore(edges_[i]);
}

/// The first row that is not before this time, where those before `low` are and `high` is not: near the
/// guess, mostly.
std::int64_t SeenRows::search(std::int64_t low, std::int64_t high, std::int64_t guess, double time) const {
  const NumberSeries& times = group_->times;
  if (guess < high && times[guess] < time) {
    low = guess + 1;
    std::int64_t step = 1;
    for (; low + step < high && times[low + step] < time; step *= 2) low += step + 1;
    high = std::min(high, low + step);
  } else {
    high = guess;
    std::int64_t step = 1;
    for (; high - step >= low && !(times[high - step] < time); step *= 2) high -= step;
    low = std::max(low, high - step);
  }
  while (low < high) {
    const std::int64_t middle = low + (high - low) / 2;
    if (times[middle] < time)
      low = middle + 1;
    else
      high = middle;
  }
  return low;
}

bool SeenRows::brokenBefore(std::int64_t row) const {
  if (row < 1 || row >= group_->rows()) return true;
  const double before = group_->times[row - 1];
  const double now = group_->times[row];
  if (now - before > longest_) return true;
  const auto behind =
      std::ranges::partition_point(gaps_, [now](const TimeSpan& gap) { return gap.from < now; });
  return behind != gaps_.begin() && std::prev(behind)->till > before;
}

void SeenRecords::see(const TimeColumns& columns) {
  const bool same = columns.count == columns_.count && columns.span.from == columns_.span.from &&
                    columns.span.till == columns_.span.till;
  if (!same) forget();
  columns_ = columns;
}

const SeenRows& SeenRecords::rows(const ReviewScene& scene, const CurvePlace& place) {
  const std::pair key(place.record, place.group);
  auto found = groups_.find(key);
  if (found == groups_.end())
    found = groups_.emplace(key, SeenRows(scene.records()[place.record], scene.group(place), columns_)).first;
  return found->second;
}

}  // namespace tarnlog
