#include "display/DisplayBuilder.h"

#include <limits>

#include "platform/base/TarnError.h"

namespace tarnlog {
namespace {

constexpr Colour kOddRow = 0xD0D0D0;
constexpr Colour kEvenRow = 0xF0F0F0;
constexpr Colour kBlack = 0x000000;

std::int16_t elementNumber(std::int32_t number) {
  if (number > std::numeric_limits<std::int16_t>::max())
    throw TarnError(6, "ScopeItem.BuildDisplay", "Too many data to display");
  return static_cast<std::int16_t>(number);
}

std::string unitSuffix(const ferrox3::DataItem& data) {
  return data.unit().empty() ? std::string() : " (" + data.unit() + ")";
}

std::string displayName(const std::string& caption, const ferrox3::DataItem& data) {
  return (caption.empty() ? data.name() : caption) + unitSuffix(data);
}

ValueDescription describe(const std::string& caption, const ferrox3::DataItem& data) {
  ValueDescription description{displayName(caption, data), data.unit(), {}, data.decimals()};
  const ferrox3::Enumeration* const texts = data.enumeration();
  for (std::int32_t i = 1; texts != nullptr && i <= texts->Count(); ++i) {
    const std::string label = texts->label(i);
    description.labels.emplace_back(texts->value(label), label);
  }
  return description;
}

}  // namespace

void DisplayBuilder::add(GrapheItem& graphe) {
  switch (graphe.GrapheMode) {
    case GrapheItem::kScope:
      return addGraph(graphe);
    case GrapheItem::kDigital:
      return addDigital(graphe);
    case GrapheItem::kSlide:
      return addSlide(graphe);
  }
}

void DisplayBuilder::addGraph(GrapheItem& graphe) {
  if (!graphe.courbes) return;
  const std::int32_t height = layout_.blockHeight(graphe);
  loadCurveLabels(*graphe.courbes, DisplayLayout::slotHeight(height, graphe.courbes->Count()));
  loadGraphControl(graphe, height);
  setXAxis(graphe.grapheControl, graphe);
  setYAxis(graphe.grapheControl, graphe);
  addPlots(graphe.grapheControl, *graphe.courbes);
  describeValues(graphe);
  steps_.set(graphe.courbes->Item(graphe.courbes->Count()).ValeurControl, &LabelControl::bringToFront);
  layout_.advance(height);
  ++graphNumber_;
}

void DisplayBuilder::addDigital(GrapheItem& graphe) {
  const Colour background = labelNumber_ % 2 != 0 ? kOddRow : kEvenRow;
  const std::int32_t height = layout_.blockHeight(graphe);
  loadValueCell(graphe.ValueNum, height, background);
  loadCaptionCell(graphe.LibelleControl, graphe, height, background);
  ++labelNumber_;
  layout_.advance(height);
  ++graphNumber_;
}

void DisplayBuilder::addSlide(GrapheItem& graphe) {
  const std::int32_t height = layout_.blockHeight(graphe);
  loadZoneLabels(graphe.ValueNum, graphe.LibelleControl, displayName(graphe.Caption, *graphe.Data),
                 {layout_.top(), height, DisplayLayout::kWideLabels, graphe.Color});
  loadSlideControl(graphe, height);
  setPointers(graphe.slideControl, graphe);
  ++slideNumber_;
  layout_.advance(height);
}

void DisplayBuilder::loadCurveLabels(CourbeItems& courbes, std::int32_t slot) {
  std::int32_t top = layout_.top();
  for (CourbeItem& courbe : courbes) {
    loadZoneLabels(courbe.ValeurControl, courbe.LibelleControl, displayName(courbe.Caption, *courbe.Data),
                   {top, slot, DisplayLayout::kCurveLabels, courbe.Color});
    top += slot;
  }
}

void DisplayBuilder::loadZoneLabels(LabelControl*& value, LabelControl*& caption, const std::string& name,
                                    const LabelZone& zone) {
  steps_.run([&] { value = frame_.LoadValueText(elementNumber(labelNumber_)); });
  steps_.set(value, &LabelControl::setCaption, "");
  steps_.skipFailures(true);
  steps_.run([&] {
    LabelControl& label = GuardedSteps::required(value);
    label.setTop(DisplayLayout::valueLabelTop(zone.top, zone.height, label.height()));
  });
  steps_.skipFailures(false);
  steps_.set(value, &Control::setLeft, Twips{0});
  steps_.set(value, &Control::setWidth, zone.width);
  steps_.set(value, &Control::setVisible, true);
  steps_.set(value, &LabelControl::setTextColour, zone.colour);
  steps_.set(value, &LabelControl::setBorder, false);

  steps_.run([&] { caption = frame_.LoadCaption(elementNumber(labelNumber_)); });
  steps_.set(caption, &LabelControl::setCaption, name);
  steps_.skipFailures(true);
  steps_.set(caption, &Control::setTop, static_cast<Twips>(zone.top));
  steps_.run([&] {
    LabelControl& label = GuardedSteps::required(caption);
    const Twips valueHeight = GuardedSteps::required(value).height();
    label.setHeight(DisplayLayout::captionHeight(zone.height, label.height(), valueHeight));
  });
  steps_.set(caption, &Control::setLeft, Twips{0});
  steps_.set(caption, &Control::setWidth, zone.width);
  steps_.set(caption, &Control::setVisible, true);
  steps_.set(caption, &LabelControl::setTextColour, zone.colour);
  ++labelNumber_;
}

void DisplayBuilder::loadValueCell(LabelControl*& label, std::int32_t height, Colour background) {
  steps_.run([&] { label = frame_.LoadValueText(elementNumber(labelNumber_)); });
  steps_.set(label, &LabelControl::setCaption, "");
  steps_.skipFailures(true);
  steps_.set(label, &Control::setTop, static_cast<Twips>(layout_.top()));
  steps_.skipFailures(false);
  steps_.set(label, &Control::setLeft, Twips{0});
  steps_.set(label, &Control::setWidth, DisplayLayout::kWideLabels);
  steps_.set(label, &Control::setVisible, true);
  steps_.set(label, &Control::setHeight, static_cast<Twips>(height));
  steps_.set(label, &LabelControl::setBorder, false);
  steps_.set(label, &LabelControl::setBackColour, background);
}

void DisplayBuilder::loadCaptionCell(LabelControl*& label, const GrapheItem& graphe, std::int32_t height,
                                     Colour background) {
  steps_.run([&] { label = frame_.LoadCaption(elementNumber(labelNumber_)); });
  steps_.set(label, &LabelControl::setThreeD, true);
  steps_.set(label, &LabelControl::setCaption, displayName(graphe.Caption, *graphe.Data));
  steps_.set(label, &LabelControl::setToolTip, graphe.Caption + unitSuffix(*graphe.Data));
  steps_.skipFailures(true);
  steps_.set(label, &Control::setTop, static_cast<Twips>(layout_.top()));
  steps_.set(label, &Control::setHeight, static_cast<Twips>(height));
  steps_.set(label, &Control::setLeft, DisplayLayout::kWideLabels);
  steps_.run([&] { GuardedSteps::required(label).setWidth(frame_.width() - DisplayLayout::kWideLabels); });
  steps_.set(label, &Control::setVisible, true);
  steps_.set(label, &LabelControl::setTextColour, kBlack);
  steps_.set(label, &LabelControl::setLeftAligned);
  steps_.set(label, &LabelControl::setBackColour, background);
  steps_.set(label, &LabelControl::setBorder, false);
  steps_.set(label, &LabelControl::setFont, "MS Sans Serif", 10, false, false);
}

void DisplayBuilder::loadGraphControl(GrapheItem& graphe, std::int32_t height) {
  GraphControl*& graph = graphe.grapheControl;
  steps_.run([&] { graph = frame_.LoadGraph(elementNumber(graphNumber_ + 1)); });
  steps_.run([&] { GuardedSteps::required(graph).setWidth(frame_.width() - DisplayLayout::kCurveLabels); });
  steps_.set(graph, &Control::setHeight, static_cast<Twips>(height + kTwipsPerPixel));
  steps_.set(graph, &Control::setTop, static_cast<Twips>(layout_.top()));
  steps_.set(graph, &Control::setLeft, DisplayLayout::kCurveLabels);
  steps_.set(graph, &Control::setVisible, true);
  steps_.set(graph, &GraphControl::setEnabled, true);
  steps_.set(graph, &GraphControl::setTitle, graphe.courbes->Item(1).Data->name());
  steps_.set(graph, &GraphControl::bringToFront);
}

void DisplayBuilder::setXAxis(GraphControl* graph, const GrapheItem& graphe) {
  const bool xy = graphe.xData != nullptr;
  steps_.set(graph, &GraphControl::setXY, xy);
  steps_.set(graph, &GraphControl::setHistory, graphe.AxeXPoints);
  if (!xy) {
    steps_.set(graph, &GraphControl::setAxisRange, Axis::X, 0, graphe.AxeXPoints);
  } else if (graphe.xautoscale) {
    steps_.set(graph, &GraphControl::setAxisAutoscale, Axis::X, true);
  } else {
    steps_.set(graph, &GraphControl::setAxisRange, Axis::X, graphe.xmini, graphe.xmaxi);
  }
  steps_.set(graph, &GraphControl::setAxisLabels, Axis::X, xy);
  if (xy)
    steps_.set(graph, &GraphControl::setAxisCaption, Axis::X,
               graphe.xcaption.empty() ? graphe.xData->name() : graphe.xcaption);
}

void DisplayBuilder::setYAxis(GraphControl* graph, const GrapheItem& graphe) {
  if (graphe.grapheType() == 0) {
    constexpr double kMargin = 0.05;
    steps_.set(graph, &GraphControl::setAxisRange, Axis::Y, graphe.courbes->mini() - kMargin,
               graphe.courbes->maxi() + kMargin);
    steps_.set(graph, &GraphControl::setAxisBinary, Axis::Y);
    steps_.set(graph, &GraphControl::setAxisAutoscale, Axis::Y, false);
  } else if (graphe.yautoscale) {
    steps_.set(graph, &GraphControl::setAxisAutoscale, Axis::Y, true);
  } else {
    steps_.set(graph, &GraphControl::setAxisRange, Axis::Y, graphe.ymini, graphe.ymaxi);
  }
}

void DisplayBuilder::addPlots(GraphControl* graph, const CourbeItems& courbes) {
  int plot = 1;
  for (const CourbeItem& courbe : courbes) {
    steps_.set(graph, &GraphControl::addPlot);
    steps_.set(graph, &GraphControl::setPlotColour, plot++, courbe.Color);
  }
}

/// A plot whose data cannot be described is shown all the same.
void DisplayBuilder::describeValues(const GrapheItem& graphe) {
  GraphControl* const graph = graphe.grapheControl;
  if (graph == nullptr) return;
  int plot = 1;
  for (const CourbeItem& courbe : *graphe.courbes) {
    skipOnFailure([&] { graph->describePlot(plot, describe(courbe.Caption, *courbe.Data)); });
    ++plot;
  }
  if (graphe.xData != nullptr)
    skipOnFailure([&] { graph->describeX(describe(graphe.xcaption, *graphe.xData)); });
}

void DisplayBuilder::loadSlideControl(GrapheItem& graphe, std::int32_t height) {
  SlideControl*& slide = graphe.slideControl;
  steps_.run([&] { slide = frame_.LoadSlide(elementNumber(slideNumber_)); });
  steps_.run([&] { GuardedSteps::required(slide).setWidth(frame_.width() - DisplayLayout::kWideLabels); });
  steps_.set(slide, &Control::setHeight, static_cast<Twips>(height + kTwipsPerPixel));
  steps_.set(slide, &Control::setTop, static_cast<Twips>(layout_.top()));
  steps_.set(slide, &Control::setLeft, DisplayLayout::kWideLabels);
  steps_.set(slide, &SlideControl::setAxisRange, graphe.ymini, graphe.ymaxi);
  steps_.set(slide, &SlideControl::setTitle, graphe.Data->name() + unitSuffix(*graphe.Data));
  steps_.set(slide, &Control::setVisible, true);
}

void DisplayBuilder::setPointers(SlideControl* slide, const GrapheItem& graphe) {
  steps_.set(slide, &SlideControl::setPointerFillColour, SlideControl::kValue, graphe.Color);
  steps_.set(slide, &SlideControl::setPointerValue, SlideControl::kValue, graphe.ymini);
  steps_.set(slide, &SlideControl::setPointerValue, SlideControl::kLowest, graphe.ymaxi);
  steps_.set(slide, &SlideControl::setPointerColour, SlideControl::kLowest, kButtonFace);
  steps_.set(slide, &SlideControl::setPointerValue, SlideControl::kHighest, graphe.ymini);
  steps_.set(slide, &SlideControl::setPointerColour, SlideControl::kHighest, kButtonFace);
}

}  // namespace tarnlog
