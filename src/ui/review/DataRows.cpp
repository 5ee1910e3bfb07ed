#include "ui/review/DataRows.h"

#include <algorithm>
#include <utility>

#include "ui/review/GraphKinds.h"

namespace tarnlog {

namespace {

DataRows::Kind kindOf(const TableColumn& column) {
  if (isLabelled(column)) return DataRows::Kind::Labels;
  return column.onOff ? DataRows::Kind::OnOff : DataRows::Kind::Number;
}

std::string placeText(const RecordColumn& about) {
  if (about.ecu.empty() || about.request.empty()) return about.ecu + about.request;
  return about.ecu + " / " + about.request;
}

bool same(const DataRows::Row& a, const DataRows::Row& b) {
  return a.place == b.place && a.name == b.name && a.where == b.where && a.unit == b.unit && a.kind == b.kind;
}

}  // namespace

bool DataRows::refresh() {
  const std::vector<Row> before = std::exchange(all_, {});
  for (std::size_t position = 0; position < scene_.records().size(); ++position) addRecord(position);
  if (std::ranges::equal(before, all_, same)) return false;
  filter();
  return true;
}

void DataRows::addRecord(std::size_t position) {
  const std::string number =
      scene_.records().size() > 1 ? "(" + std::to_string(position + 1) + ") " : std::string();
  const std::vector<TableGroup>& groups = scene_.records()[position].recordingTable().groups;
  for (std::size_t g = 0; g < groups.size(); ++g)
    for (std::size_t c = 0; c < groups[g].columns.size(); ++c) {
      const TableColumn& column = groups[g].columns[c];
      const RecordColumn& about = column.about;
      all_.push_back({{position, g, c}, about.name, number + placeText(about), about.unit, kindOf(column)});
    }
}

void DataRows::setFilter(std::string_view text) {
  filter_.setText(text);
  filter();
}

void DataRows::filter() {
  visible_.clear();
  for (const Row& row : all_)
    if (filter_.empty() || filter_.matches(row.name + " " + row.where + " " + row.unit))
      visible_.push_back(row);
}

bool DataRows::shown(const CurvePlace& place) const {
  return std::ranges::any_of(scene_.graphs(), [&](const ReviewGraph& graph) {
    return std::ranges::any_of(graph.curves, [&](const ReviewCurve& curve) { return curve.place == place; });
  });
}

bool DataRows::suits(const ReviewGraph& graph, const TableColumn& column) const {
  if (graph.curves.empty() || graph.kind == GraphKind::XY) return false;
  if (isState(column) || graph.kind == GraphKind::States)
    return isState(column) && graph.kind == GraphKind::States;
  const auto sameUnit = [&](const ReviewCurve& curve) {
    const TableColumn& other = scene_.column(curve.place);
    return !isState(other) && other.about.unit == column.about.unit;
  };
  return std::ranges::any_of(graph.curves, sameUnit);
}

std::optional<std::size_t> DataRows::graphFor(const CurvePlace& place) const {
  const TableColumn& column = scene_.column(place);
  const std::vector<ReviewGraph>& graphs = scene_.graphs();
  const auto& chosen = scene_.chosen();
  if (chosen && chosen->graph < graphs.size() && suits(graphs[chosen->graph], column)) return chosen->graph;
  for (std::size_t graph = 0; graph < graphs.size(); ++graph)
    if (suits(graphs[graph], column)) return graph;
  return std::nullopt;
}

void DataRows::add(const CurvePlace& place) {
  for (std::size_t g = 0; g < scene_.graphs().size(); ++g) {
    const std::vector<ReviewCurve>& curves = scene_.graphs()[g].curves;
    for (std::size_t c = 0; c < curves.size(); ++c)
      if (curves[c].place == place && !curves[c].minus) return choose({g, c});
  }
  if (const auto graph = graphFor(place)) return addTo(*graph, place);
  scene_.addGraph(graphOf(scene_, {place}));
  choose({scene_.graphs().size() - 1, 0});
}

void DataRows::choose(const ReviewScene::Chosen& curve) {
  scene_.choose(curve);
  scene_.bringChosen();
}

void DataRows::addToChosen(const CurvePlace& place) {
  const auto& chosen = scene_.chosen();
  if (chosen && chosen->graph < scene_.graphs().size())
    addTo(chosen->graph, place);
  else
    add(place);
}

void DataRows::addTo(std::size_t graph, const CurvePlace& place) {
  scene_.addCurve(graph, place);
  const std::size_t curves = scene_.graphs()[graph].curves.size();
  if (curves != 0) choose({graph, curves - 1});
}

void DataRows::remove(const CurvePlace& place) {
  for (std::size_t g = scene_.graphs().size(); g-- > 0;) {
    for (std::size_t c = scene_.graphs()[g].curves.size(); c-- > 0;)
      if (scene_.graphs()[g].curves[c].place == place) scene_.removeCurve(g, c);
    if (scene_.graphs()[g].curves.empty()) scene_.removeGraph(g);
  }
}

}  // namespace tarnlog
