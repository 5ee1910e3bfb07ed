#include "records/TableBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

/// Together they stay in a cache.
constexpr std::size_t kGathered = 128 * 1024;
constexpr std::size_t kMostRows = NumberSeries::kBlock;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool isOnOff(double number) { return number == 0 || number == 1; }

}  // namespace

void TableBuilder::addRecording(const RecordHead& head) {
  TableRecording& recording = table_.recordings.emplace_back();
  recording.head = head;
  besides_.emplace_back();
  beginAgain();
}

void TableBuilder::removeNewest() {
  table_.recordings.pop_back();
  besides_.pop_back();
}

void TableBuilder::beginAgain() {
  TableRecording& recording = table_.recordings.back();
  recording.groups.clear();
  recording.marks.clear();
  besides_.back() = {};
  std::size_t columns = 1;
  for (const RecordGroup& group : recording.head.groups) {
    TableGroup& made = recording.groups.emplace_back();
    made.ecu = group.ecu;
    made.request = group.request;
    made.columns.reserve(group.columns.size());
    columns += group.columns.size();
    for (const RecordColumn& column : group.columns) made.columns.emplace_back().about = column;
    Beside& beside = besides_.back().groups.emplace_back();
    beside.newest = -std::numeric_limits<double>::infinity();
    beside.other.assign(group.columns.size(), false);
  }
  besides_.back().together = std::clamp<std::size_t>(kGathered / columns, 1, kMostRows);
}

void TableBuilder::tellMissing(std::vector<std::string>& missing) const {
  for (const Besides& besides : besides_) {
    if (besides.timesBack == 0) continue;
    std::string first;
    appendNumber(first, besides.firstBack, '.');
    missing.push_back(std::to_string(besides.timesBack) +
                      (besides.timesBack == 1 ? " row has a time" : " rows have times") +
                      " before that of the row before, the first one at " + first +
                      " s: shown at the time of the row before");
  }
}

void TableBuilder::recording(std::size_t position) { position_ = position; }

double TableBuilder::forward(double time, Beside& beside) {
  if (time >= beside.newest) return beside.newest = time;
  Besides& besides = besides_[position_];
  if (besides.timesBack++ == 0) besides.firstBack = time;
  return beside.newest;
}

void TableBuilder::row(const RecordRow& row) {
  Besides& besides = besides_[position_];
  TableGroup& group = table_.recordings[position_].groups[row.group];
  Beside& beside = besides.groups[row.group];
  if (!std::isfinite(row.time)) return;
  group.times.append(forward(row.time, beside));
  const std::size_t begin = beside.gathered.size();
  beside.gathered.resize(begin + group.columns.size());
  double* const gathered = beside.gathered.data() + begin;
  for (std::size_t i = 0; i < group.columns.size(); ++i) {
    const RecordValue& value = row.values[i];
    const bool isNumber = value.kind == RecordValue::Kind::Number && std::isfinite(value.number);
    gathered[i] = isNumber ? value.number : kNone;
    if (!value.text.empty() && value.kind == RecordValue::Kind::Text) addText(i, group, beside, value.text);
  }
  if (beside.gathered.size() >= besides.together * group.columns.size()) putRows(group, beside);
}

void TableBuilder::putRows(TableGroup& group, Beside& beside) {
  const std::size_t columns = group.columns.size();
  if (beside.gathered.empty()) return;
  const auto rows = static_cast<std::int64_t>(beside.gathered.size() / columns);
  for (std::size_t i = 0; i < columns; ++i) {
    TableColumn& column = group.columns[i];
    column.numbers.append(&beside.gathered[i], columns, rows);
    for (std::int64_t row = column.numbers.size() - rows; row < column.numbers.size() && !beside.other[i];
         ++row) {
      const double number = column.numbers[row];
      if (std::isnan(number)) continue;
      column.onOff = column.about.unit.empty() && isOnOff(number);
      beside.other[i] = !column.onOff;
    }
  }
  beside.gathered.clear();
}

void TableBuilder::finishRows() {
  for (std::size_t i = 0; i < besides_.size(); ++i)
    for (std::size_t g = 0; g < besides_[i].groups.size(); ++g)
      putRows(table_.recordings[i].groups[g], besides_[i].groups[g]);
}

void TableBuilder::addText(std::size_t column, TableGroup& group, Beside& beside, std::string_view text) {
  if (beside.texts.empty()) beside.texts.resize(group.columns.size());
  TableColumn& to = group.columns[column];
  const auto [known, isNew] =
      beside.texts[column].try_emplace(std::string(text), static_cast<std::uint32_t>(to.texts.size() + 1));
  if (isNew) to.texts.append(std::string(text));
  to.textIds.set(group.rows() - 1, known->second);
}

void TableBuilder::note(const RecordNote& note) {
  table_.recordings[position_].marks.push_back(
      {note.kind, note.time, note.till, note.number, std::string(note.text)});
}

}  // namespace tarnlog
