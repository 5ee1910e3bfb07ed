#pragma once

#include <cstdint>

namespace tarnlog {

/// Which of its points a time chart shows: `count` of them from number `first`; both may lie between points.
struct TimeView {
  double first = 0;
  double count = 1;
  double last() const { return first + count; }
  bool operator==(const TimeView&) const = default;
};

/// Points that there are: `begin` to before `end`.
struct PointSpan {
  std::int64_t begin = 0;
  std::int64_t end = 0;
};

/// All that is kept.
TimeView wholeView(const PointSpan& kept);
/// `factor` times as much (below 1: nearer), with the point `anchor` staying where it is; never closer than
/// four points, never wider than what is kept.
TimeView zoomed(const TimeView& view, double factor, double anchor, const PointSpan& kept);
/// Later by so many points, as far as there are any.
TimeView panned(const TimeView& view, double points, const PointSpan& kept);

}  // namespace tarnlog
