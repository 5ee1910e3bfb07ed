#include "ui/review/CurveColumns.h"

#include "ui/review/ValueAtTimes.h"

namespace tarnlog {

const TableColumn& CurveColumns::of(const ReviewCurve& curve) {
  if (!curve.minus) return scene_.column(curve.place);
  for (const Difference& known : differences_)
    if (known.place == curve.place && known.minus == *curve.minus) return known.column;
  differences_.push_back({curve.place, *curve.minus, difference(curve.place, *curve.minus)});
  return differences_.back().column;
}

TableColumn CurveColumns::difference(const CurvePlace& place, const CurvePlace& minus) const {
  const TableGroup& group = scene_.group(place);
  const TableColumn& column = scene_.column(place);
  const double offset = scene_.offset(place);
  ValueAtTimes other(scene_, minus);
  TableColumn made;
  made.about = column.about;
  made.about.labels.clear();
  for (std::int64_t row = 0; row < group.rows(); ++row)
    made.numbers.append(column.numbers[row] - other(group.times[row] + offset));
  return made;
}

}  // namespace tarnlog
