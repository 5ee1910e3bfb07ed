#include "ui/review/FigureRows.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "ui/review/GraphKinds.h"

namespace tarnlog {

void FigureRows::refresh() {
  rows_.clear();
  search_.reset();
  searched_ = 0;
  addCurves();
  for (Row& row : rows_) measure(row);
}

/// A curve that several graphs show is measured once.
void FigureRows::addCurves() {
  for (const ReviewGraph& graph : scene_.graphs())
    for (const ReviewCurve& curve : graph.curves) {
      const auto same = [&](const Row& row) {
        return row.curve.place == curve.place && row.curve.minus == curve.minus;
      };
      if (std::ranges::any_of(rows_, same)) continue;
      rows_.emplace(rows_.begin() + placeFor(curve))->curve = curve;
    }
}

/// Below the same of the first record, so that two drives can be compared; else at the end.
std::ptrdiff_t FigureRows::placeFor(const ReviewCurve& curve) const {
  const auto partner =
      curve.place.record == 0 || curve.minus ? std::nullopt : scene_.namesake(curve.place, 0);
  const auto isPartner = [&](const Row& row) { return row.curve.place == partner && !row.curve.minus; };
  auto found = std::ranges::find_if(rows_, isPartner);
  if (found == rows_.end()) return std::ssize(rows_);
  do ++found;
  while (found != rows_.end() && found->curve.place.record != 0);
  return found - rows_.begin();
}

TimeSpan FigureRows::spanOf(const ReviewCurve& curve) const {
  const TimeSpan span = scene_.measured();
  const double offset = scene_.offset(curve.place);
  return {span.from - offset, span.till - offset};
}

void FigureRows::measure(Row& row) {
  const TableColumn& column = columns_.of(row.curve);
  const TableGroup& group = columns_.groupOf(row.curve);
  const TimeSpan span = spanOf(row.curve);
  row.atA = valueAt(row.curve, timeA());
  row.atB = valueAt(row.curve, timeB());
  if (isLabelled(column)) return;
  row.figures = figuresOf(group, column, span);
  row.figures.lowestAt += scene_.offset(row.curve.place);
  row.figures.highestAt += scene_.offset(row.curve.place);
  row.range = row.figures.count == 0 ? 0 : row.figures.highest - row.figures.lowest;
  if (const auto apart = difference(); apart && *apart != 0)
    row.slope = (row.atB.number - row.atA.number) / *apart;
}

void FigureRows::measureAbove(Row& row) {
  const LookedAtRecord& record = scene_.records()[row.curve.place.record];
  row.above = secondsAbove(record.recordingTable(), columns_.groupOf(row.curve), columns_.of(row.curve),
                           *level_, spanOf(row.curve));
  row.aboveFound = true;
}

std::optional<double> FigureRows::difference() const {
  if (!timeA() || !timeB()) return std::nullopt;
  return *timeB() - *timeA();
}

FigureRows::Value FigureRows::valueAt(const ReviewCurve& curve, std::optional<double> time) {
  const auto row = time ? scene_.rowAt(curve.place, *time) : std::nullopt;
  if (!row) return {};
  const TableColumn& column = columns_.of(curve);
  return {column.numbers[*row], std::string(curve.minus ? std::string_view() : column.labelOf(*row))};
}

bool FigureRows::fits() const {
  return std::ranges::all_of(rows_, [this](const Row& row) {
    return scene_.has(row.curve.place) && (!row.curve.minus || scene_.has(*row.curve.minus));
  });
}

bool FigureRows::step(std::int64_t rows) {
  if (searched_ >= rows_.size()) return false;
  Row& row = rows_[searched_];
  const TableColumn& column = columns_.of(row.curve);
  if (isLabelled(column)) return ++searched_ < rows_.size();
  if (level_ && !row.aboveFound) return measureAbove(row), true;
  if (!search_) search_.emplace(columns_.groupOf(row.curve), column, spanOf(row.curve));
  if (!search_->step(rows)) return true;
  row.median = search_->median();
  row.medianFound = true;
  search_.reset();
  return ++searched_ < rows_.size();
}

}  // namespace tarnlog
