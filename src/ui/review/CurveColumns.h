#pragma once

#include <list>

#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// The rows of a curve, to be measured: those of its data item, or of a difference. A difference is made when
/// it is asked for, and kept.
class CurveColumns {
 public:
  explicit CurveColumns(const ReviewScene& scene) : scene_(scene) {}

  /// Valid until `forget`, or until the records change.
  const TableColumn& of(const ReviewCurve& curve);
  const TableGroup& groupOf(const ReviewCurve& curve) const { return scene_.group(curve.place); }
  /// After records, their rows or their offsets changed.
  void forget() { differences_.clear(); }

 private:
  struct Difference {
    CurvePlace place;
    CurvePlace minus;
    TableColumn column;
  };

  TableColumn difference(const CurvePlace& place, const CurvePlace& minus) const;

  const ReviewScene& scene_;
  std::list<Difference> differences_;
};

}  // namespace tarnlog
