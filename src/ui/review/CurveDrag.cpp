#include "ui/review/CurveDrag.h"

#include <QByteArray>
#include <QList>

namespace tarnlog {

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
    if (known[0] && known[1] && known[2] && scene.has(place)) places.push_back(place);
  }
  return places;
}

}  // namespace tarnlog
