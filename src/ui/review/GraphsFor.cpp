#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "records/RecordGraphs.h"
#include "ui/review/GraphKinds.h"

namespace tarnlog {
namespace {

constexpr std::size_t kMostGraphs = 8;
constexpr std::size_t kMostCurves = 6;   ///< of a graph
constexpr std::size_t kMostStates = 12;  ///< bars of a graph

bool isEmpty(const TableColumn& column) {
  return column.texts.empty() && !column.numbers.extremes(0, column.numbers.size()).any();
}

void add(ReviewGraph& graph, const CurvePlace& place) {
  graph.curves.push_back({place, {}, reviewColour(graph.curves.size())});
}

/// The graph that takes one more curve of this unit.
ReviewGraph* graphWith(std::vector<ReviewGraph>& graphs, const std::string& unit) {
  const auto found = std::ranges::find_if(graphs, [&](const ReviewGraph& each) {
    return each.title == unit && each.curves.size() < kMostCurves;
  });
  if (found != graphs.end()) return &*found;
  if (graphs.size() == kMostGraphs) return nullptr;
  graphs.push_back({unit, GraphKind::Time, {}, {}, false, 0});
  return &graphs.back();
}

std::vector<CurvePlace> allPlaces(const LookedAtRecord& record, std::size_t position) {
  std::vector<CurvePlace> places;
  const auto& groups = record.recordingTable().groups;
  for (std::size_t i = 0; i < groups.size(); ++i)
    for (std::size_t k = 0; k < groups[i].columns.size(); ++k) places.push_back({position, i, k});
  return places;
}

const TableColumn& columnOf(const LookedAtRecord& record, const CurvePlace& place) {
  return record.recordingTable().groups[place.group].columns[place.column];
}

void addByUnit(std::vector<ReviewGraph>& graphs, const LookedAtRecord& record,
               const std::vector<CurvePlace>& places) {
  std::vector<ReviewGraph> units;
  ReviewGraph states{{}, GraphKind::States, {}, {}, false, 0};
  for (const CurvePlace& place : places) {
    const TableColumn& column = columnOf(record, place);
    if (isEmpty(column)) continue;
    if (isState(column)) {
      if (states.curves.size() < kMostStates) add(states, place);
    } else if (ReviewGraph* const graph = graphWith(units, column.about.unit)) {
      add(*graph, place);
    }
  }
  for (ReviewGraph& unit : units) {
    unit.title.clear();
    graphs.push_back(std::move(unit));
  }
  if (!states.curves.empty()) graphs.push_back(std::move(states));
}

/// Bars and digits of the configuration become curves, as data without a configuration do.
std::vector<ReviewGraph> configured(const LookedAtRecord& record, std::size_t position,
                                    std::vector<CurvePlace>& single) {
  std::vector<ReviewGraph> graphs;
  const auto placeOf = [position](const ColumnPlace& place) {
    return CurvePlace{position, place.group, place.column};
  };
  for (const RecordGraph& each : configuredGraphs(*record.table, record.recording)) {
    const bool graphed = each.kind == RecordGraph::Kind::Time || each.kind == RecordGraph::Kind::XY;
    ReviewGraph graph{each.title, GraphKind::Time, {}, {}, false, 0};
    for (const GraphedColumn& column : each.columns) {
      if (graphed)
        graph.curves.push_back({placeOf(column.place), {}, column.colour});
      else
        single.push_back(placeOf(column.place));
    }
    if (!graphed) continue;
    if (each.kind == RecordGraph::Kind::XY && each.x) {
      graph.kind = GraphKind::XY;
      graph.x = placeOf(*each.x);
    } else if (std::ranges::all_of(graph.curves, [&](const ReviewCurve& curve) {
                 return isState(columnOf(record, curve.place));
               })) {
      graph.kind = GraphKind::States;
    }
    graphs.push_back(std::move(graph));
  }
  return graphs;
}

}  // namespace

std::vector<ReviewGraph> graphsFor(const LookedAtRecord& record, std::size_t position) {
  std::vector<CurvePlace> single;
  std::vector<ReviewGraph> graphs = configured(record, position, single);
  addByUnit(graphs, record, graphs.empty() && single.empty() ? allPlaces(record, position) : single);
  return graphs;
}

}  // namespace tarnlog
