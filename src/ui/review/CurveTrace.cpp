#include "ui/review/CurveTrace.h"

#include <algorithm>
#include <cmath>

#include "ui/review/ValueAtTimes.h"

namespace tarnlog {
namespace {

constexpr std::int64_t kRowsOfDenseColumn = 4;
constexpr double kBeyond = 16;                        ///< columns that a line goes on outside
constexpr std::int64_t kMostDifferences = 1'000'000;  ///< rows that are looked at for a curve
constexpr std::int64_t kMostPairs = 50'000;           ///< points of an X-Y curve
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

bool isDense(const SeenRows& rows) { return rows.rows() > kRowsOfDenseColumn * rows.columns(); }

/// Rows of a block that is drawn as a whole, in the column where it begins: where a column has one at least,
/// no value is looked at, and nothing moves by more than a pixel.
std::int64_t blockWithin(std::int64_t rows) {
  for (const std::int64_t block : {NumberSeries::kChunk, std::int64_t{1024}, NumberSeries::kBlock})
    if (rows >= block) return block;
  return 1;
}

void cut(CurveTrace::Point& outside, const CurveTrace::Point& inside, double at) {
  const double part = (at - inside.x) / (outside.x - inside.x);
  outside = {at, inside.y + part * (outside.y - inside.y)};
}

template <class Value>
void traceRows(const SeenRows& rows, Value&& value, CurveTrace& trace) {
  const std::int64_t first = std::max<std::int64_t>(rows.first() - 1, 0);
  const std::int64_t last = std::min(rows.last() + 1, rows.group().rows());
  for (std::int64_t row = first; row < last; ++row) {
    const double number = value(row);
    if (!std::isfinite(number) || rows.brokenBefore(row)) trace.lift();
    if (!std::isfinite(number)) continue;
    trace.add({rows.columnOf(row), number});
    if (row >= rows.first() && row < rows.last()) trace.see(number, number);
  }
  trace.cutEnds(-kBeyond, rows.columns() + kBeyond);  // lines to rows far outside would be long
}

/// The nearer end first, so that the line from the column before is short.
void addBand(CurveTrace& trace, double column, double lowest, double highest) {
  const double before = trace.isLifted() ? lowest : trace.points.back().y;
  const bool upwards = std::abs(before - lowest) <= std::abs(before - highest);
  trace.add({column, upwards ? lowest : highest});
  if (lowest != highest) trace.add({column, upwards ? highest : lowest});
  trace.see(lowest, highest);
}

void traceDense(const SeenRows& rows, const NumberSeries& numbers, CurveTrace& trace) {
  const std::int64_t block = blockWithin(rows.rows() / rows.columns());
  const auto whole = [&](std::int64_t row) {
    return std::min((row + block - 1) / block * block, rows.last());
  };
  const auto goesOn = [&](std::int64_t row) {
    return block > 1 || (std::isfinite(numbers[row]) && std::isfinite(numbers[row - 1]));
  };
  std::int64_t first = whole(rows.first());
  for (int column = 0; column < rows.columns(); ++column) {
    const std::int64_t next = column + 1 == rows.columns() ? rows.last() : whole(rows.edge(column + 1));
    if (rows.brokenAt(column)) trace.lift();
    if (next <= first) continue;
    const NumberSummary extremes = numbers.extremes(first, next);
    if (!extremes.any() || (!trace.isLifted() && !goesOn(first))) trace.lift();
    if (extremes.any()) addBand(trace, column + 0.5, extremes.lowest, extremes.highest);
    first = next;
  }
}

/// Where there are very many rows, some of each column.
template <class Value>
void traceDenseValues(const SeenRows& rows, Value&& value, CurveTrace& trace) {
  const std::int64_t step = rows.rows() / kMostDifferences + 1;
  for (int column = 0; column < rows.columns(); ++column) {
    if (rows.brokenAt(column)) trace.lift();
    NumberSummary extremes;
    for (std::int64_t row = rows.edge(column); row < rows.edge(column + 1); row += step) {
      const double number = value(row);
      if (!std::isfinite(number)) continue;
      ++extremes.count;
      extremes.lowest = std::min(extremes.lowest, number);
      extremes.highest = std::max(extremes.highest, number);
    }
    if (extremes.any())
      addBand(trace, column + 0.5, extremes.lowest, extremes.highest);
    else if (rows.edge(column) != rows.edge(column + 1))
      trace.lift();
  }
}

}  // namespace

void CurveTrace::clear() {
  points.clear();
  times.clear();
  lowest = std::numeric_limits<double>::infinity();
  highest = -lowest;
}

bool CurveTrace::isLifted() const { return points.empty() || std::isnan(points.back().y); }

void CurveTrace::add(const Point& point) { points.push_back(point); }

void CurveTrace::lift() {
  if (!isLifted()) points.push_back({points.back().x, kNone});
}

void CurveTrace::cutEnds(double from, double till) {
  const auto joined = [this](std::size_t a, std::size_t b) {
    return std::isfinite(points[a].y) && std::isfinite(points[b].y);
  };
  const std::size_t count = points.size();
  if (count < 2) return;
  if (points[0].x < from && joined(0, 1)) cut(points[0], points[1], from);
  if (points[count - 1].x > till && joined(count - 1, count - 2))
    cut(points[count - 1], points[count - 2], till);
}

void CurveTrace::see(double low, double high) {
  lowest = std::min(lowest, low);
  highest = std::max(highest, high);
}

void traceOverTime(const ReviewScene& scene, const ReviewCurve& curve, SeenRecords& seen, CurveTrace& trace) {
  trace.clear();
  const SeenRows& rows = seen.rows(scene, curve.place);
  const NumberSeries& numbers = scene.column(curve.place).numbers;
  if (curve.minus) {
    ValueAtTimes other(scene, *curve.minus);
    const auto difference = [&](std::int64_t row) { return numbers[row] - other(rows.timeOf(row)); };
    if (isDense(rows))
      traceDenseValues(rows, difference, trace);
    else
      traceRows(rows, difference, trace);
  } else if (isDense(rows)) {
    traceDense(rows, numbers, trace);
  } else {
    traceRows(
        rows, [&](std::int64_t row) { return numbers[row]; }, trace);
  }
  if (trace.lowest <= trace.highest) return;
  for (const CurveTrace::Point& point : trace.points)
    if (std::isfinite(point.y)) trace.see(point.y, point.y);
}

void traceOverValues(const ReviewScene& scene, const ReviewCurve& curve, const CurvePlace& x,
                     SeenRecords& seen, CurveTrace& trace) {
  trace.clear();
  const SeenRows& rows = seen.rows(scene, curve.place);
  const NumberSeries& numbers = scene.column(curve.place).numbers;
  ValueAtTimes xs(scene, x);
  const std::int64_t step = rows.rows() / kMostPairs + 1;
  for (std::int64_t row = rows.first(); row < rows.last(); row += step) {
    const CurveTrace::Point point{xs(rows.timeOf(row)), numbers[row]};
    const bool finite = std::isfinite(point.x) && std::isfinite(point.y);
    if (!finite || rows.brokenBefore(row)) trace.lift();
    trace.times.resize(trace.points.size(), kNone);
    if (!finite) continue;
    trace.add(point);
    trace.times.push_back(rows.timeOf(row));
    trace.see(point.y, point.y);
  }
}

}  // namespace tarnlog
