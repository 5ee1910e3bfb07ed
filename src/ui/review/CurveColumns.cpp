#include "ui/review/CurveColumns.h"

#include <cmath>
#include <limits>

namespace tarnlog {

const TableColumn& CurveColumns::of(const ReviewCurve& curve) {
  if (!curve.minus) return scene_.column(curve.place);
  for (const Difference& known : differences_)
    if (known.place == curve.place && known.minus == *curve.minus) return known.column;
  differences_.push_back({curve.place, *curve.minus, difference(curve.place, *curve.minus)});
  return differences_.back().column;
}

/// Each value of the other one holds until its next row; before its first and behind its last one there is
/// no difference.
TableColumn CurveColumns::difference(const CurvePlace& place, const CurvePlace& minus) const {
  const TableGroup& group = scene_.group(place);
  const TableColumn& column = scene_.column(place);
  const TableGroup& otherGroup = scene_.group(minus);
  const TableColumn& other = scene_.column(minus);
  const double shift = scene_.offset(place) - scene_.offset(minus);
  const std::int64_t otherRows = otherGroup.rows();
  TableColumn made;
  made.about = column.about;
  made.about.labels.clear();
  std::int64_t at = -1;
  for (std::int64_t row = 0; row < group.rows(); ++row) {
    const double time = group.times[row] + shift;
    while (at + 1 < otherRows && otherGroup.times[at + 1] <= time) ++at;
    const bool outside = at < 0 || (at + 1 == otherRows && otherGroup.times[at] < time);
    made.numbers.append(outside ? std::numeric_limits<double>::quiet_NaN()
                                : column.numbers[row] - other.numbers[at]);
  }
  return made;
}

}  // namespace tarnlog
