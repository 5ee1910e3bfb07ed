#include "ui/acquisition/GraphBlock.h"

#include "ui/acquisition/LabelStyle.h"

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

void GraphBlock::setPlotColour(int plot, Colour colour) {
  shown().setPlotColour(plot, toQColor(colour, shown().palette()));
}

void GraphBlock::restyle() { shown().setFont(fittedFont(shown().parentWidget()->font(), kLineHeight)); }

}  // namespace tarnlog
