#pragma once

#include <optional>
#include <vector>

#include "ui/review/ReviewScene.h"

/// Which data are curves, which are bars, and which may be either.
namespace tarnlog {

/// Its values are labels and no numbers to measure. Labels of a datum with a unit stand for single numbers of
/// it ("not available"); one without, that has numbers mostly, is a number.
bool isLabelled(const TableColumn& column);
/// A bar shows it best: filled while it is on, or with a label in each band.
bool isState(const TableColumn& column);

/// A graph that suits these data.
ReviewGraph graphOf(const ReviewScene& scene, const std::vector<CurvePlace>& places);
/// Bars in place of curves, or curves in place of bars; none where the data of the graph do not allow it.
std::optional<GraphKind> otherKind(const ReviewScene& scene, const ReviewGraph& graph);

}  // namespace tarnlog
