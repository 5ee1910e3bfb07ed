#pragma once

#include <cstdint>
#include <string>

#include "display/DisplayLayout.h"
#include "display/GrapheItem.h"
#include "display/GuardedSteps.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// Makes the controls of the live display, one block per display item from top to bottom, and places them.
/// The top of a value label is tried only: a label that refuses it keeps what it has. From a caption on,
/// failures are skipped until the next value label has been placed; any other failure passes to the caller.
class DisplayBuilder {
 public:
  DisplayBuilder(GraphicFrame& frame, DisplayLayout& layout) : frame_(frame), layout_(layout) {}

  void add(GrapheItem& graphe);

 private:
  /// The zone left of a graph or bar in which the two labels of a curve or bar stand.
  struct LabelZone {
    std::int32_t top;
    std::int32_t height;
    Twips width;
    Colour colour;
  };

  void addGraph(GrapheItem& graphe);
  void addDigital(GrapheItem& graphe);
  void addSlide(GrapheItem& graphe);

  void loadZoneLabels(LabelControl*& value, LabelControl*& caption, const std::string& name,
                      const LabelZone& zone);
  void loadCurveLabels(CourbeItems& courbes, std::int32_t slot);
  void loadValueCell(LabelControl*& label, std::int32_t height, Colour background);
  void loadCaptionCell(LabelControl*& label, const GrapheItem& graphe, std::int32_t height,
                       Colour background);
  void loadGraphControl(GrapheItem& graphe, std::int32_t height);
  void setXAxis(GraphControl* graph, const GrapheItem& graphe);
  void setYAxis(GraphControl* graph, const GrapheItem& graphe);
  void addPlots(GraphControl* graph, const CourbeItems& courbes);
  static void describeValues(const GrapheItem& graphe);
  void loadSlideControl(GrapheItem& graphe, std::int32_t height);
  void setPointers(SlideControl* slide, const GrapheItem& graphe);

  GraphicFrame& frame_;
  DisplayLayout& layout_;
  GuardedSteps steps_;
  std::int32_t labelNumber_ = 1;
  std::int32_t graphNumber_ = 0;
  std::int32_t slideNumber_ = 1;
};

}  // namespace tarnlog
