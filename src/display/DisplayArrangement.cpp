#include "display/DisplayArrangement.h"

namespace tarnlog {
namespace {

void placeValueLabel(LabelControl* label, std::int32_t zoneTop, std::int32_t zoneHeight) {
  if (label != nullptr) label->setTop(DisplayLayout::valueLabelTop(zoneTop, zoneHeight, label->height()));
}

void arrangeCurveLabels(const CourbeItems& courbes, std::int32_t top, std::int32_t slot) {
  for (const CourbeItem& courbe : courbes) {
    placeValueLabel(courbe.ValeurControl, top, slot);
    if (LabelControl* const caption = courbe.LibelleControl) {
      caption->setTop(static_cast<Twips>(top));
      const Twips valueHeight = courbe.ValeurControl != nullptr ? courbe.ValeurControl->height() : 0;
      caption->setHeight(DisplayLayout::captionHeight(slot, caption->height(), valueHeight));
    }
    top += slot;
  }
}

void arrangeGraph(const GrapheItem& graphe, std::int32_t top, std::int32_t height, Twips frameWidth) {
  if (graphe.courbes)
    arrangeCurveLabels(*graphe.courbes, top, DisplayLayout::slotHeight(height, graphe.courbes->Count()));
  if (GraphControl* const graph = graphe.grapheControl) {
    graph->setHeight(static_cast<Twips>(height + kTwipsPerPixel));
    graph->setTop(static_cast<Twips>(top));
    graph->setWidth(frameWidth - DisplayLayout::kCurveLabels);
  }
}

void arrangeDigital(const GrapheItem& graphe, std::int32_t top, Twips frameWidth) {
  if (LabelControl* const caption = graphe.LibelleControl) {
    caption->setTop(static_cast<Twips>(top));
    caption->setLeft(DisplayLayout::kWideLabels);
    caption->setWidth(frameWidth - DisplayLayout::kWideLabels);
  }
  if (LabelControl* const value = graphe.ValueNum) {
    value->setTop(static_cast<Twips>(top));
    value->setWidth(DisplayLayout::kWideLabels);
  }
}

void arrangeSlide(const GrapheItem& graphe, std::int32_t top, std::int32_t height, Twips frameWidth) {
  if (LabelControl* const caption = graphe.LibelleControl) {
    caption->setTop(static_cast<Twips>(top));
    caption->setWidth(DisplayLayout::kWideLabels);
    caption->setHeight(static_cast<Twips>(height));
  }
  if (LabelControl* const value = graphe.ValueNum) {
    placeValueLabel(value, top, height);
    value->setWidth(DisplayLayout::kWideLabels);
  }
  if (SlideControl* const slide = graphe.slideControl) {
    slide->setTop(static_cast<Twips>(top));
    slide->setLeft(DisplayLayout::kWideLabels);
    slide->setWidth(frameWidth - DisplayLayout::kWideLabels);
    slide->setHeight(static_cast<Twips>(height));
  }
}

}  // namespace

void arrangeBlock(const GrapheItem& graphe, Twips frameWidth, DisplayLayout& layout) {
  const std::int32_t top = layout.top();
  const std::int32_t height = layout.blockHeight(graphe);
  switch (graphe.GrapheMode) {
    case GrapheItem::kScope:
      arrangeGraph(graphe, top, height, frameWidth);
      break;
    case GrapheItem::kDigital:
      arrangeDigital(graphe, top, frameWidth);
      break;
    case GrapheItem::kSlide:
      arrangeSlide(graphe, top, height, frameWidth);
      break;
  }
  layout.advance(height);
}

}  // namespace tarnlog
