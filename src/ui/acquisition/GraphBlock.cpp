#include "ui/acquisition/GraphBlock.h"

#include "ui/acquisition/LabelStyle.h"
#include "ui/acquisition/Readable.h"

namespace tarnlog {
namespace {

CWGraph::AxisId idOf(Axis axis) { return axis == Axis::X ? CWGraph::XAxis : CWGraph::YAxis; }

}  // namespace

GraphBlock::GraphBlock(QWidget* frame) : Placed(std::make_unique<CWGraph>(frame)) { restyle(); }

void GraphBlock::setTitle(std::string_view title) { shown().setTitle(toQString(title)); }

void GraphBlock::setAxisRange(Axis axis, double minimum, double maximum) {
  shown().setAxisRange(idOf(axis), minimum, maximum);
}

void GraphBlock::setAxisAutoscale(Axis axis, bool on) { shown().setAxisAutoscale(idOf(axis), on); }

void GraphBlock::setAxisCaption(Axis axis, std::string_view caption) {
  shown().setAxisCaption(idOf(axis), toQString(caption));
}

void GraphBlock::setAxisLabels(Axis axis, bool labels) { shown().setAxisLabels(idOf(axis), labels); }

void GraphBlock::setAxisBinary(Axis axis) { shown().setAxisBinary(idOf(axis)); }

void GraphBlock::addPlot() {
  shown().addPlot();
  colours_.push_back(0);
}

void GraphBlock::setPlotColour(int plot, Colour colour) {
  if (plot < 1 || plot > shown().plotCount()) return;
  colours_[static_cast<std::size_t>(plot - 1)] = colour;
  const QPalette palette = shown().palette();
  shown().setPlotColour(plot, readableCurve(toQColor(colour, palette), palette.color(QPalette::Base)));
}

void GraphBlock::restyle() {
  shown().setFont(fittedFont(shown().parentWidget()->font(), kLineHeight));
  int plot = 1;
  for (const Colour colour : colours_) setPlotColour(plot++, colour);
}

}  // namespace tarnlog
