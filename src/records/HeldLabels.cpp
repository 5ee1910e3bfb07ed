#include "records/HeldLabels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

std::vector<TimeSpan> gapsOf(const TableRecording& recording) {
  std::vector<TimeSpan> gaps;
  for (const TableMark& mark : recording.marks)
    if (mark.kind == RecordNote::Kind::Gap) gaps.push_back({mark.time, mark.till});
  std::sort(gaps.begin(), gaps.end(), [](const TimeSpan& a, const TimeSpan& b) { return a.from < b.from; });
  return gaps;
}

/// Seconds outside gaps. Asked for spans that follow each other.
class TimeOutsideGaps {
 public:
  explicit TimeOutsideGaps(const TableRecording& recording) : gaps_(gapsOf(recording)) {}

  double of(const TimeSpan& span) {
    while (next_ < gaps_.size() && gaps_[next_].till <= span.from) ++next_;
    double seconds = 0;
    double from = span.from;
    for (std::size_t i = next_; i < gaps_.size() && gaps_[i].from < span.till; ++i) {
      seconds += std::max(0.0, gaps_[i].from - from);
      from = std::max(from, gaps_[i].till);
    }
    return seconds + std::max(0.0, span.till - from);
  }

 private:
  std::vector<TimeSpan> gaps_;
  std::size_t next_ = 0;
};

class Labels {
 public:
  explicit Labels(const TableColumn& column) : column_(column) {}

  /// The position of the row's label; none when it has no value.
  std::optional<std::size_t> at(std::int64_t row) {
    const double number = column_.numbers[row];
    if (known_ && number == column_.numbers[*known_]) return position_;
    std::string label(column_.labelOf(row));
    if (label.empty()) {
      if (!std::isfinite(number)) return std::nullopt;
      appendNumber(label, number, '.');
    }
    const auto [found, added] = positions_.try_emplace(label, held.size());
    if (added) held.push_back({.label = std::move(label)});
    if (std::isfinite(number)) {
      known_ = row;
      position_ = found->second;
    }
    return found->second;
  }

  std::vector<HeldLabel> held;

 private:
  const TableColumn& column_;
  std::unordered_map<std::string, std::size_t> positions_;
  std::optional<std::int64_t> known_;  ///< a row whose number has the label at `position_`
  std::size_t position_ = 0;
};

}  // namespace

std::vector<HeldLabel> heldLabels(const TableRecording& recording, const TableGroup& group,
                                  const TableColumn& column, const TimeSpan& span) {
  Labels labels(column);
  TimeOutsideGaps time(recording);
  std::optional<std::size_t> before;
  for (std::int64_t row = group.rowAt(span.from).value_or(0); row < group.rows(); ++row) {
    if (group.times[row] > span.till) break;
    const std::optional<std::size_t> now = labels.at(row);
    const double from = std::max(group.times[row], span.from);
    if (now && now != before) {
      HeldLabel& began = labels.held[*now];
      if (began.times++ == 0) began.first = from;
    }
    if (now && row + 1 < group.rows())
      labels.held[*now].seconds += time.of({from, std::min(group.times[row + 1], span.till)});
    before = now;
  }
  return std::move(labels.held);
}

}  // namespace tarnlog
