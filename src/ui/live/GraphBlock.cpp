#include "ui/live/GraphBlock.h"

#include <limits>
#include <utility>

#include "platform/text/Cell.h"
#include "ui/live/GraphChoices.h"
#include "ui/live/LabelStyle.h"

namespace tarnlog {
namespace {

CWGraph::AxisId idOf(Axis axis) { return axis == Axis::X ? CWGraph::XAxis : CWGraph::YAxis; }

}  // namespace

GraphBlock::GraphBlock(QWidget* frame, ChartCycles& cycles)
    : Placed(std::make_unique<CWGraph>(frame)), cycles_(cycles) {
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
  plots_.emplace_back();
}

void GraphBlock::setPlotColour(int plot, Colour colour) {
  shown().setPlotColour(plot, toQColor(colour, shown().palette()));
}

void GraphBlock::describePlot(int plot, const ValueDescription& description) {
  if (plot >= 1 && plot <= shown().plotCount()) plots_[index(plot)].description = description;
}

void GraphBlock::chartY(int plot, double y) {
  if (plot < 1 || plot > shown().plotCount()) return;
  // The first curve that has its point already says that this is another cycle.
  if (!cycles_.running() || plots_[index(plot)].came) cycles_.begin();
  plots_[index(plot)].came = true;
  shown().chartY(plot, y, cycles_.moment());
}

void GraphBlock::endCycle() {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  if (shown().isXY()) return;
  for (int plot = 1; plot <= shown().plotCount(); ++plot)
    if (!std::exchange(plots_[index(plot)].came, false)) shown().chartY(plot, kNone, cycles_.moment());
}

double GraphBlock::sinceNewest() const {
  const TimeLine& times = shown().times();
  return cycles_.age() + (times.end() > 0 ? cycles_.moment() - times.momentOf(times.end() - 1) : 0);
}

std::string GraphBlock::name() const {
  std::string name;
  for (const Plot& each : plots_) name += (name.empty() ? "" : ", ") + each.description.name;
  return cleanCell(name);
}

void GraphBlock::apply(const GraphChoices& choices) {
  CWGraph& graph = shown();
  graph.setTimeGrid(choices.times());
  graph.setThickCurves(choices.thickCurves());
  const std::string known = name();
  graph.setOwnScales(graph.plotCount() > 1 && choices.ownScales(known));
  graph.chooseScale(choices.axisOf(known));
  nameValues();
}

/// At the axis of one enumeration stand its labels.
void GraphBlock::nameValues() {
  const bool alone = plots_.size() == 1 || shown().ownScales();
  const auto shownPlot = static_cast<std::size_t>(shown().ownScales() ? shown().chosenScale() : 1);
  std::vector<std::pair<double, QString>> names;
  if (alone && shownPlot <= plots_.size())
    for (const auto& [value, label] : plots_[shownPlot - 1].description.labels)
      names.emplace_back(value, toQString(label));
  shown().setValueNames(std::move(names));
}

void GraphBlock::restyle() { shown().setFont(fittedFont(shown().parentWidget()->font(), kLineHeight)); }

}  // namespace tarnlog
