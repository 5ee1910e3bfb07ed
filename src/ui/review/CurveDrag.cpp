#include "ui/review/CurveDrag.h"

#include <QByteArray>
#include <QList>
#include <algorithm>

namespace tarnlog {
namespace {

bool exists(const CurvePlace& place, const ReviewScene& scene) {
  if (place.record >= scene.records().size()) return false;
  const auto& groups = scene.records()[place.record].recordingTable().groups;
  return place.group < groups.size() && place.column < groups[place.group].columns.size();
}

}  // namespace

QMimeData* curvePayload(const std::vector<CurvePlace>& places) {
  QByteArray lines;
  for (const CurvePlace& place : places)
    lines += QByteArray::number(static_cast<qulonglong>(place.record)) + ' ' +
             QByteArray::number(static_cast<qulonglong>(place.group)) + ' ' +
             QByteArray::number(static_cast<qulonglong>(place.column)) + '\n';
  auto* const data = new QMimeData;
  data->setData(QLatin1String(kDraggedCurves), lines);
  return data;
}

std::vector<CurvePlace> draggedCurves(const QMimeData& data, const ReviewScene& scene) {
  std::vector<CurvePlace> places;
  for (const QByteArray& line : data.data(QLatin1String(kDraggedCurves)).split('\n')) {
    const QList<QByteArray> parts = line.split(' ');
    if (parts.size() != 3) continue;
    bool known[3] = {false, false, false};
    const CurvePlace place{parts[0].toULongLong(&known[0]), parts[1].toULongLong(&known[1]),
                           parts[2].toULongLong(&known[2])};
    if (known[0] && known[1] && known[2] && exists(place, scene)) places.push_back(place);
  }
  return places;
}

ReviewGraph graphOf(const ReviewScene& scene, const std::vector<CurvePlace>& places) {
  ReviewGraph graph;
  const bool states = std::ranges::all_of(places, [&](const CurvePlace& each) {
    const TableColumn& column = scene.column(each);
    return column.onOff || (column.isEnumeration() && column.about.unit.empty());
  });
  graph.kind = states ? GraphKind::States : GraphKind::Time;
  for (std::size_t i = 0; i < places.size(); ++i) graph.curves.push_back({places[i], {}, reviewColour(i)});
  return graph;
}

}  // namespace tarnlog
