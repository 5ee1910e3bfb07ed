#include "ui/scope/ScopeEditor.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "ui/scope/ScopeOffers.h"

namespace tarnlog {

EditorParts editorParts(std::int32_t type) {
  EditorParts parts;
  parts.settings = type != oTarnScope::kNone;
  parts.axis = type == oTarnScope::kBarGraph || type == oTarnScope::kGraph || type == oTarnScope::kGraphAxeX;
  parts.axisIsX = type == oTarnScope::kGraphAxeX;
  parts.automatic = type == oTarnScope::kGraph || type == oTarnScope::kGraphAxeX;
  parts.points = type == oTarnScope::kGraph;
  parts.colour =
      type == oTarnScope::kBarGraph || type == oTarnScope::kGraph || type == oTarnScope::kGraphIndex;
  parts.graphs = type == oTarnScope::kGraphIndex || type == oTarnScope::kGraphAxeX;
  return parts;
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
  oTarnScope* const scope = current();
  if (scope == nullptr) return;
  if (const std::int32_t* const graph = scope->graphReference()) values_.graph = *graph;
  switch (scope->ScopeType()) {
    case oTarnScope::kDigital:
      values_.caption = scope->oTarnNumeric->Caption;
      break;
    case oTarnScope::kBarGraph:
      values_.caption = scope->oTarnSlide->Caption;
      values_.mini = scope->oTarnSlide->mini;
      values_.maxi = scope->oTarnSlide->maxi;
      values_.colour = scope->oTarnSlide->Color;
      break;
    case oTarnScope::kGraph:
      values_.caption = scope->oTarnGraph->Caption;
      loadAxis(scope->oTarnGraph->AxeYAuto, scope->oTarnGraph->AxeYmini, scope->oTarnGraph->AxeYmaxi);
      values_.points = scope->oTarnGraph->points;
      values_.colour = scope->oTarnGraph->Color;
      break;
    case oTarnScope::kGraphIndex:
      values_.caption = scope->oTarnGraphIndex->Caption;
      values_.colour = scope->oTarnGraphIndex->Color;
      break;
    case oTarnScope::kGraphAxeX:
      values_.caption = scope->oTarnGraphAxeX->Caption;
      loadAxis(scope->oTarnGraphAxeX->axeXAuto, scope->oTarnGraphAxeX->axeXmini,
               scope->oTarnGraphAxeX->axeXmaxi);
      break;
    default:
      break;
  }
}

void ScopeEditor::loadAxis(bool automatic, double mini, double maxi) {
  values_.automatic = automatic;
  values_.mini = mini;
  values_.maxi = maxi;
}

bool ScopeEditor::chooseType(std::int32_t type) {
  oTarnScope* const scope = current();
  if (scope == nullptr || type == scope->ScopeType()) return false;
  const std::vector<std::int32_t> types = offeredTypes(*parameters_, *scope).types;
  if (std::find(types.begin(), types.end(), type) == types.end()) return false;
  if (type == oTarnScope::kNone) scope->SetNone();
  if (type == oTarnScope::kDigital) scope->SetNumeric(values_.caption);
  if (type == oTarnScope::kBarGraph)
    scope->SetSlide(values_.caption, values_.mini, values_.maxi, values_.colour);
  if (type == oTarnScope::kGraph)
    scope->SetGraph(values_.caption, values_.automatic, values_.mini, values_.maxi, values_.points,
                    values_.colour);
  if (type == oTarnScope::kGraphIndex && !becomeCurve(*scope)) return false;
  if (type == oTarnScope::kGraphAxeX && !becomeXAxis(*scope)) return false;
  parameters_->CheckAndCorrect();
  load();
  return true;
}

/// The graph that the item belonged to last, when it is offered, else the first one.
std::int32_t ScopeEditor::reference(const std::vector<const oTarnScope*>& graphs) const {
  const bool offered = std::any_of(graphs.begin(), graphs.end(),
                                   [&](const oTarnScope* graph) { return graph->index == values_.graph; });
  return offered ? values_.graph : graphs.front()->index;
}

bool ScopeEditor::becomeCurve(oTarnScope& scope) {
  const auto offered = offeredGraphs(*parameters_, scope, oTarnScope::kGraphIndex);
  if (offered.empty()) return false;
  scope.SetGraphIndex(values_.colour, static_cast<float>(reference(offered)));
  return true;
}

bool ScopeEditor::becomeXAxis(oTarnScope& scope) {
  const auto offered = offeredGraphs(*parameters_, scope, oTarnScope::kGraphAxeX);
  if (offered.empty()) return false;
  scope.SetGraphAxeX(values_.caption, values_.automatic, values_.mini, values_.maxi, reference(offered));
  return true;
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

bool ScopeEditor::apply(ScopeAction action, const std::vector<std::size_t>& positions) {
  if (parameters_ == nullptr) return false;
  std::vector<oTarnScope*> items;
  for (const std::size_t position : positions)
    if (oTarnScope* const scope = parameters_->Item(position)) items.push_back(scope);
  if (!applyAction(action, *parameters_, items)) return false;
  load();
  return true;
}

}  // namespace tarnlog
