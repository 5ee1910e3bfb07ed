#include "ui/scope/ScopeEditor.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "platform/base/Overloaded.h"
#include "platform/text/Numbers.h"
#include "ui/scope/ScopeOffers.h"

namespace tarnlog {

EditorParts editorParts(DisplayKind kind) {
  switch (kind) {
    case DisplayKind::kNone:
      return {};
    case DisplayKind::kDigital:
      return {.settings = true};
    case DisplayKind::kBarGraph:
      return {.settings = true, .axis = true, .colour = true};
    case DisplayKind::kGraph:
      return {.settings = true, .axis = true, .automatic = true, .points = true, .colour = true};
    case DisplayKind::kGraphIndex:
      return {.settings = true, .colour = true, .graphs = true};
    case DisplayKind::kGraphAxeX:
      return {.settings = true, .axis = true, .axisIsX = true, .automatic = true, .graphs = true};
  }
  return {};
}

void ScopeEditor::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  parameters_ = std::move(parameters);
  const std::size_t position = std::max<std::size_t>(currentPosition(), 1);
  key_.clear();
  values_ = {};
  show(position);
}

void ScopeEditor::show(std::size_t position) {
  const oTarnScope* const scope = parameters_ == nullptr ? nullptr : parameters_->Item(position);
  if (scope == nullptr) return;
  if (scope->DataKey != key_) {
    key_ = scope->DataKey;
    values_ = {};
    values_.colour = paletteColour(position - 1);
  }
  load();
}

oTarnScope* ScopeEditor::current() const {
  return parameters_ == nullptr ? nullptr : parameters_->Item(key_);
}

std::size_t ScopeEditor::currentPosition() const {
  const oTarnScope* const scope = current();
  if (scope == nullptr) return 0;
  const auto found = std::find_if(parameters_->begin(), parameters_->end(),
                                  [&](const oTarnScope& item) { return &item == scope; });
  return static_cast<std::size_t>(std::distance(parameters_->begin(), found)) + 1;
}

EditorParts ScopeEditor::parts() const {
  const oTarnScope* const scope = current();
  return editorParts(scope == nullptr ? oTarnScope::kNone : scope->ScopeType());
}

std::vector<const oTarnScope*> ScopeEditor::graphs() const {
  const oTarnScope* const scope = current();
  if (scope == nullptr || !parts().graphs) return {};
  return offeredGraphs(*parameters_, *scope, scope->ScopeType());
}

std::optional<std::size_t> ScopeEditor::chosenGraph() const {
  const auto offered = graphs();
  const auto found = std::find_if(offered.begin(), offered.end(),
                                  [&](const oTarnScope* graph) { return graph->index == values_.graph; });
  if (found == offered.end()) return std::nullopt;
  return static_cast<std::size_t>(found - offered.begin());
}

void ScopeEditor::load() {
  const oTarnScope* const scope = current();
  if (scope == nullptr) return;
  std::visit(Overloaded{
                 [](const NoDisplay&) {},
                 [&](const oTarnNumeric& digital) { values_.caption = digital.Caption; },
                 [&](const oTarnSlide& bar) {
                   values_.caption = bar.Caption;
                   values_.mini = bar.mini;
                   values_.maxi = bar.maxi;
                   values_.colour = bar.Color;
                 },
                 [&](const oTarnGraph& graph) {
                   values_.caption = graph.Caption;
                   loadAxis(graph.AxeYAuto, graph.AxeYmini, graph.AxeYmaxi);
                   values_.points = graph.points;
                   values_.colour = graph.Color;
                 },
                 [&](const oTarnGraphIndex& curve) {
                   values_.caption = curve.Caption;
                   values_.colour = curve.Color;
                   values_.graph = curve.index;
                 },
                 [&](const oTarnGraphAxeX& axis) {
                   values_.caption = axis.Caption;
                   loadAxis(axis.axeXAuto, axis.axeXmini, axis.axeXmaxi);
                   values_.graph = axis.index;
                 },
             },
             scope->display());
}

void ScopeEditor::loadAxis(bool automatic, double mini, double maxi) {
  values_.automatic = automatic;
  values_.mini = mini;
  values_.maxi = maxi;
}

bool ScopeEditor::chooseType(DisplayKind type) {
  oTarnScope* const scope = current();
  if (scope == nullptr || type == scope->ScopeType()) return false;
  const std::vector<DisplayKind> types = offeredTypes(*parameters_, *scope).types;
  if (std::find(types.begin(), types.end(), type) == types.end()) return false;
  become(*scope, type);
  if (scope->ScopeType() != type) return false;
  parameters_->CheckAndCorrect();
  load();
  return true;
}

void ScopeEditor::become(oTarnScope& scope, DisplayKind type) {
  switch (type) {
    case DisplayKind::kNone:
      return scope.SetNone();
    case DisplayKind::kDigital:
      return scope.SetNumeric(values_.caption);
    case DisplayKind::kBarGraph:
      return scope.SetSlide(values_.caption, values_.mini, values_.maxi, values_.colour);
    case DisplayKind::kGraph:
      return scope.SetGraph(values_.caption, values_.automatic, values_.mini, values_.maxi, values_.points,
                            values_.colour);
    case DisplayKind::kGraphIndex:
      return becomeCurve(scope);
    case DisplayKind::kGraphAxeX:
      return becomeXAxis(scope);
  }
}

/// The graph that the item belonged to last, when it is offered, else the first one.
std::int32_t ScopeEditor::reference(const std::vector<const oTarnScope*>& graphs) const {
  const bool offered = std::any_of(graphs.begin(), graphs.end(),
                                   [&](const oTarnScope* graph) { return graph->index == values_.graph; });
  return offered ? values_.graph : graphs.front()->index;
}

void ScopeEditor::becomeCurve(oTarnScope& scope) {
  const auto offered = offeredGraphs(*parameters_, scope, DisplayKind::kGraphIndex);
  if (!offered.empty()) scope.SetGraphIndex(values_.colour, static_cast<float>(reference(offered)));
}

/// Graphs that are offered may all have their X axis.
void ScopeEditor::becomeXAxis(oTarnScope& scope) {
  const auto offered = offeredGraphs(*parameters_, scope, DisplayKind::kGraphAxeX);
  if (!offered.empty())
    scope.SetGraphAxeX(values_.caption, values_.automatic, values_.mini, values_.maxi, reference(offered));
}

bool ScopeEditor::changeCaption(const std::string& caption) {
  oTarnScope* const scope = current();
  if (scope == nullptr || !parts().settings) return false;
  values_.caption = caption;
  scope->ChangeCaption(caption);
  return true;
}

bool ScopeEditor::changeAutomatic(bool automatic) {
  values_.automatic = automatic;
  return changeAxis();
}

bool ScopeEditor::changeMini(double mini) {
  values_.mini = mini;
  return changeAxis();
}

bool ScopeEditor::changeMaxi(double maxi) {
  values_.maxi = maxi;
  return changeAxis();
}

bool ScopeEditor::changeAxis() {
  oTarnScope* const scope = current();
  if (scope == nullptr || !parts().axis) return false;
  scope->ChangeAxeY(values_.automatic, values_.mini, values_.maxi);
  return true;
}

bool ScopeEditor::changePoints(std::int32_t points) {
  oTarnScope* const scope = current();
  if (scope == nullptr || !parts().points) return false;
  values_.points = points;
  scope->ChangeAxeXNbPoints(points);
  return true;
}

bool ScopeEditor::changeColour(std::int32_t colour) {
  oTarnScope* const scope = current();
  if (scope == nullptr || !parts().colour || colour == values_.colour) return false;
  values_.colour = colour;
  scope->ChangeColor(colour);
  return true;
}

bool ScopeEditor::chooseGraph(std::size_t position) {
  const auto offered = graphs();
  if (position >= offered.size() || offered[position]->index == values_.graph) return false;
  values_.graph = offered[position]->index;
  *current()->graphReference() = values_.graph;
  return true;
}

bool ScopeEditor::moveUp() { return moveTo(currentPosition() - 1); }

bool ScopeEditor::moveDown() { return moveTo(currentPosition() + 1); }

bool ScopeEditor::moveTo(std::size_t position) {
  oTarnScope* const scope = current();
  oTarnScope* const target = scope == nullptr ? nullptr : parameters_->Item(position);
  if (target == nullptr) return false;
  parameters_->changeScopeOrder(*scope, *target);
  load();
  return true;
}

std::vector<oTarnScope*> ScopeEditor::itemsAt(const std::vector<std::size_t>& positions) const {
  std::vector<oTarnScope*> items;
  if (parameters_ == nullptr) return items;
  for (const std::size_t position : positions)
    if (oTarnScope* const scope = parameters_->Item(position)) items.push_back(scope);
  return items;
}

bool ScopeEditor::apply(ScopeAction action, const std::vector<std::size_t>& positions) {
  if (parameters_ == nullptr || !applyAction(action, *parameters_, itemsAt(positions))) return false;
  load();
  return true;
}

bool ScopeEditor::applyPoints(std::int32_t points, const std::vector<std::size_t>& positions) {
  if (!tarnlog::applyPoints(points, itemsAt(positions))) return false;
  load();
  return true;
}

bool ScopeEditor::actsOn(ScopeAction action, const std::vector<std::size_t>& positions) const {
  return tarnlog::actsOn(action, itemsAt(positions));
}

std::optional<std::int32_t> ScopeEditor::pointsOf(const std::vector<std::size_t>& positions) const {
  for (oTarnScope* const scope : itemsAt(positions))
    if (const oTarnGraph* const graph = scope->oTarnGraph()) return graph->points;
  return std::nullopt;
}

std::optional<ScopeEditor::Range> ScopeEditor::dataRange() const {
  const oTarnScope* const scope = current();
  if (scope == nullptr || document_ == nullptr || !scope->isNumber()) return std::nullopt;
  const XmlElement data = FindSessionData(*document_, scope->EcuName, scope->RequestName, scope->DataName,
                                          scope->FunctionAddress);
  if (!data) return std::nullopt;
  const Range range{leadingNumber(data.attributeOrEmpty("min")), leadingNumber(data.attributeOrEmpty("max"))};
  if (!std::isfinite(range.mini) || !std::isfinite(range.maxi) || range.mini >= range.maxi)
    return std::nullopt;
  return range;
}

bool ScopeEditor::takeDataRange() {
  const std::optional<Range> range = dataRange();
  if (!range || !rangeEnabled()) return false;
  values_.mini = range->mini;
  values_.maxi = range->maxi;
  return changeAxis();
}

}  // namespace tarnlog
