#include "display/ScopeItem.h"

#include <utility>

#include "display/DisplayArrangement.h"
#include "display/DisplayBuilder.h"
#include "display/DisplayLayout.h"
#include "display/DisplayUpdate.h"

namespace tarnlog {
namespace {

void clearCurves(GraphicFrame& frame, const CourbeItems& courbes) {
  for (CourbeItem& courbe : courbes) {
    frame.UnloadCaption(std::exchange(courbe.LibelleControl, nullptr));
    frame.UnloadValueText(std::exchange(courbe.ValeurControl, nullptr));
  }
}

void clearBlock(GraphicFrame& frame, GrapheItem& graphe) {
  if (graphe.grapheControl != nullptr) graphe.grapheControl->clearData();
  frame.UnloadGraph(std::exchange(graphe.grapheControl, nullptr));
  frame.UnloadSlide(std::exchange(graphe.slideControl, nullptr));
  frame.UnloadCaption(std::exchange(graphe.LibelleControl, nullptr));
  frame.UnloadValueText(std::exchange(graphe.ValueNum, nullptr));
  if (graphe.courbes) clearCurves(frame, *graphe.courbes);
}

}  // namespace

void ScopeItem::setGraphes(std::unique_ptr<GrapheItems> graphes) {
  graphes_ = graphes ? std::move(graphes) : std::make_unique<GrapheItems>();
}

void ScopeItem::BuildDisplay(GraphicFrame& frame, std::int32_t minHeight, Twips& extraHeight) {
  if (graphes_->Count() == 0) return;
  DisplayLayout layout(*graphes_, frame.height(), minHeight);
  DisplayBuilder builder(frame, layout);
  for (GrapheItem& graphe : *graphes_) builder.add(graphe);
  extraHeight = layout.extraHeight();
}

void ScopeItem::ArrangeDisplay(GraphicFrame& frame, std::int32_t minHeight, Twips& extraHeight) {
  if (graphes_->Count() == 0) return;
  DisplayLayout layout(*graphes_, frame.height(), minHeight);
  const Twips frameWidth = frame.width();
  for (const GrapheItem& graphe : *graphes_) arrangeBlock(graphe, frameWidth, layout);
  extraHeight = layout.extraHeight();
}

void ScopeItem::ClearDisplay(GraphicFrame& frame) {
  for (GrapheItem& graphe : *graphes_) clearBlock(frame, graphe);
}

void ScopeItem::RefreshDisplay() {
  for (GrapheItem& graphe : *graphes_) refreshBlock(graphe);
}

}  // namespace tarnlog
