#include "ui/live/GraphBlock.h"

#include <utility>

#include "platform/text/Cell.h"
#include "ui/live/GraphChoices.h"
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
  if (plot == 1 && clock_ != nullptr) takeMoment();
  shown().chartY(plot, y, moment_);
}

/// The clock's milliseconds begin again after 49 days; moments do not.
void GraphBlock::takeMoment() {
  const Milliseconds now = clock_->milliseconds();
  if (newest_) moment_ += millisecondsBetween(*newest_, now);
  newest_ = now;
}

double GraphBlock::sinceNewest() const {
  if (clock_ == nullptr || !newest_) return 0;
  const CWGraph& graph = shown();
  const double later =
      graph.times().end() > 0 ? moment_ - graph.times().momentOf(graph.times().end() - 1) : 0;
  return later + millisecondsBetween(*newest_, clock_->milliseconds());
}

std::string GraphBlock::name() const {
  std::string name;
  for (const ValueDescription& each : descriptions_) name += (name.empty() ? "" : ", ") + each.name;
  return cleanCell(name);
}

void GraphBlock::apply(const GraphChoices& choices) {
  CWGraph& graph = shown();
  graph.setTimeGrid(choices.times());
  graph.setThickCurves(choices.thickCurves());
  graph.setOwnScales(graph.plotCount() > 1 && choices.ownScales(name()));
  nameValues();
}

/// At the axis of one enumeration stand its labels.
void GraphBlock::chooseScale(int plot) {
  shown().chooseScale(plot);
  nameValues();
}

void GraphBlock::nameValues() {
  const bool alone = descriptions_.size() == 1 || shown().ownScales();
  const auto shownPlot = static_cast<std::size_t>(shown().ownScales() ? shown().chosenScale() : 1);
  std::vector<std::pair<double, QString>> names;
  if (alone && shownPlot <= descriptions_.size())
    for (const auto& [value, label] : descriptions_[shownPlot - 1].labels)
      names.emplace_back(value, toQString(label));
  shown().setValueNames(std::move(names));
}

void GraphBlock::restyle() { shown().setFont(fittedFont(shown().parentWidget()->font(), kLineHeight)); }

}  // namespace tarnlog
