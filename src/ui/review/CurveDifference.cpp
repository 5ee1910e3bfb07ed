#include "ui/review/CurveDifference.h"

#include <optional>
#include <string>
#include <utility>

#include "ui/review/GraphKinds.h"

namespace tarnlog {

namespace {

constexpr std::uint32_t kColour = 0x808000;

/// The chosen curve, and the same datum of another record; none where there is none.
std::optional<std::pair<CurvePlace, CurvePlace>> pairOf(const ReviewScene& scene) {
  const auto& chosen = scene.chosen();
  if (!chosen || chosen->graph >= scene.graphs().size()) return std::nullopt;
  const std::vector<ReviewCurve>& curves = scene.graphs()[chosen->graph].curves;
  if (chosen->curve >= curves.size() || curves[chosen->curve].minus) return std::nullopt;
  const CurvePlace place = curves[chosen->curve].place;
  if (isLabelled(scene.column(place))) return std::nullopt;
  for (std::size_t other = 0; other < scene.records().size(); ++other) {
    if (other == place.record) continue;
    if (const auto same = scene.namesake(place, other)) return std::pair(place, *same);
  }
  return std::nullopt;
}

}  // namespace

bool canShowDifference(const ReviewScene& scene) { return pairOf(scene).has_value(); }

void showDifference(ReviewScene& scene) {
  const auto pair = pairOf(scene);
  if (!pair) return;
  ReviewGraph graph;
  graph.title = scene.column(pair->first).about.name + " (" + std::to_string(pair->first.record + 1) + " - " +
                std::to_string(pair->second.record + 1) + ")";
  graph.curves.push_back({pair->first, pair->second, kColour});
  scene.addGraph(std::move(graph));
  scene.choose(ReviewScene::Chosen{scene.graphs().size() - 1, 0});
  scene.bringChosen();
}

}  // namespace tarnlog
