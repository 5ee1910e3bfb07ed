#include "display/DisplayUpdate.h"

#include "platform/base/TarnError.h"
#include "platform/ferrox3/Value.h"

namespace tarnlog {
namespace {

constexpr Colour kBeyondAxis = 0x0000FF;

template <class Target>
Target& built(Target* control) {
  if (control == nullptr) throw TarnError(91, "ScopeItem.RefreshDisplay", "The display is not built");
  return *control;
}

void refreshGraph(GrapheItem& graphe) {
  if (!graphe.courbes) return;
  GraphControl& graph = built(graphe.grapheControl);
  int plot = 1;
  for (CourbeItem& courbe : *graphe.courbes) {
    const double y = ferrox3::numericValue(courbe.Data->value());
    if (graphe.xData != nullptr) {
      graph.plotXY(plot, ferrox3::numericValue(graphe.xData->value()), y);
    } else {
      graph.chartY(plot, y);
    }
    built(courbe.ValeurControl).setCaption(courbe.Data->valueText());
    ++plot;
  }
}

/// The markers close in on the range of values seen; one that would leave the axis stays at its end, in red.
void moveMarkers(SlideControl& slide, double value) {
  if (value < slide.pointerValue(SlideControl::kLowest)) {
    const bool beyond = value < slide.axisMinimum();
    slide.setPointerValue(SlideControl::kLowest, beyond ? slide.axisMinimum() : value);
    if (beyond) slide.setPointerColour(SlideControl::kLowest, kBeyondAxis);
  }
  if (value > slide.pointerValue(SlideControl::kHighest)) {
    const bool beyond = value > slide.axisMaximum();
    slide.setPointerValue(SlideControl::kHighest, beyond ? slide.axisMaximum() : value);
    if (beyond) slide.setPointerColour(SlideControl::kHighest, kBeyondAxis);
  }
}

void refreshSlide(GrapheItem& graphe) {
  SlideControl& slide = built(graphe.slideControl);
  const double value = ferrox3::numericValue(graphe.Data->value());
  slide.setValue(value);
  built(graphe.ValueNum).setCaption(graphe.Data->valueText());
  moveMarkers(slide, value);
}

}  // namespace

void refreshBlock(GrapheItem& graphe) {
  switch (graphe.GrapheMode) {
    case GrapheItem::kScope:
      return refreshGraph(graphe);
    case GrapheItem::kDigital:
      return built(graphe.ValueNum).setCaption(graphe.Data->valueText());
    case GrapheItem::kSlide:
      return refreshSlide(graphe);
  }
}

}  // namespace tarnlog
