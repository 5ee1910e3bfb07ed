#include "ui/live/GraphBlock.h"

#include "ui/live/LabelStyle.h"

namespace tarnlog {
namespace {

CWGraph::AxisId idOf(Axis axis) { return axis == Axis::X ? CWGraph::XAxis : CWGraph::YAxis; }

}  // namespace

GraphBlock::GraphBlock(QWidget* frame, const Clock* clock)
    : Placed(std::make_unique<CWGraph>(frame)), clock_(clock) {
  restyle();
}

void GraphBlock::setTitle(std::string_view title) {
  shown().setTitle(toQString(title));
  shown().setToolTip({});  // the value under the mouse is read out instead
}

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
  descriptions_.emplace_back();
}

void GraphBlock::setPlotColour(int plot, Colour colour) {
  shown().setPlotColour(plot, toQColor(colour, shown().palette()));
}

void GraphBlock::describePlot(int plot, const ValueDescription& description) {
  if (plot >= 1 && plot <= shown().plotCount()) descriptions_[index(plot)] = description;
}

void GraphBlock::chartY(int plot, double y) {
  const bool first = plot == 1 && clock_ != nullptr;
  shown().chartY(plot, y, first ? static_cast<double>(clock_->milliseconds()) : 0);
}

void GraphBlock::restyle() { shown().setFont(fittedFont(shown().parentWidget()->font(), kLineHeight)); }

}  // namespace tarnlog
