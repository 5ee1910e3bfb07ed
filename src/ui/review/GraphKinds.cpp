#include "ui/review/GraphKinds.h"

#include <algorithm>

namespace tarnlog {

bool isLabelled(const TableColumn& column) {
  if (!column.isEnumeration() || !column.about.unit.empty()) return false;
  const std::int64_t numbers = column.numbers.extremes(0, column.numbers.size()).count;
  return !column.about.labels.empty() || 2 * numbers < column.numbers.size();
}

bool isState(const TableColumn& column) { return column.onOff || isLabelled(column); }

ReviewGraph graphOf(const ReviewScene& scene, const std::vector<CurvePlace>& places) {
  ReviewGraph graph;
  const bool bars =
      std::ranges::all_of(places, [&](const CurvePlace& place) { return isState(scene.column(place)); });
  graph.kind = bars ? GraphKind::States : GraphKind::Time;
  for (const CurvePlace& place : places) graph.curves.push_back({place, {}, 0});
  return graph;
}

std::optional<GraphKind> otherKind(const ReviewScene& scene, const ReviewGraph& graph) {
  if (graph.kind == GraphKind::XY) return std::nullopt;
  const GraphKind other = graph.kind == GraphKind::Time ? GraphKind::States : GraphKind::Time;
  const auto allows = [&](const ReviewCurve& curve) {
    const TableColumn& column = scene.column(curve.place);
    if (other == GraphKind::States) return !curve.minus && (column.onOff || column.isEnumeration());
    return column.numbers.extremes(0, column.numbers.size()).any();
  };
  return std::ranges::all_of(graph.curves, allows) ? std::optional(other) : std::nullopt;
}

}  // namespace tarnlog
