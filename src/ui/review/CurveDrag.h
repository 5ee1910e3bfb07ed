#pragma once

#include <QMimeData>
#include <vector>

#include "ui/review/ReviewScene.h"

/// Data that are dragged onto graphs: lines "record group column".
namespace tarnlog {

inline constexpr const char* kDraggedCurves = "application/x-tarnlog-curve";

QMimeData* curvePayload(const std::vector<CurvePlace>& places);
/// Those that the scene has.
std::vector<CurvePlace> draggedCurves(const QMimeData& data, const ReviewScene& scene);

}  // namespace tarnlog
