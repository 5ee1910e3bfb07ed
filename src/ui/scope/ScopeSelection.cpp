#include "ui/scope/ScopeSelection.h"

#include <algorithm>
#include <cstddef>

#include "ui/scope/ScopePalette.h"

namespace tarnlog {

namespace {

constexpr double kMini = 0;
constexpr double kMaxi = 100;

void makeGraph(oTarnScope& scope) {
  scope.SetGraph("", true, kMini, kMaxi, oTarnGraph::kDefaultPoints, paletteColour(0));
}

void oneGraph(const std::vector<oTarnScope*>& items) {
  makeGraph(*items.front());
  for (std::size_t k = 1; k < items.size(); ++k)
    items[k]->SetGraphIndex(paletteColour(k), static_cast<float>(items.front()->index));
}

void lastGivesXAxis(const std::vector<oTarnScope*>& items) {
  oTarnScope& last = *items.back();
  if (const oTarnGraphIndex* const curve = last.oTarnGraphIndex())
    last.SetGraphAxeX("", true, kMini, kMaxi, curve->index);
}

bool unifyPoints(const std::vector<oTarnScope*>& items) {
  const auto first = std::find_if(items.begin(), items.end(),
                                  [](oTarnScope* scope) { return scope->oTarnGraph() != nullptr; });
  return first != items.end() && applyPoints((*first)->oTarnGraph()->points, items);
}

bool hasAxis(const oTarnScope& scope) {
  return scope.ScopeType() == DisplayKind::kGraph || scope.ScopeType() == DisplayKind::kGraphAxeX;
}

bool isDrawn(const oTarnScope& scope) {
  return scope.ScopeType() == DisplayKind::kGraph || scope.ScopeType() == DisplayKind::kGraphIndex;
}

bool actsOn(ScopeAction action, const oTarnScope& scope) {
  switch (action) {
    case ScopeAction::Unify:
      return scope.ScopeType() == DisplayKind::kGraph;
    case ScopeAction::Colours:
      return isDrawn(scope);
    case ScopeAction::EmptyCaption:
      return scope.ScopeType() != DisplayKind::kNone;
    case ScopeAction::AutomaticOn:
    case ScopeAction::AutomaticOff:
      return hasAxis(scope);
    case ScopeAction::None:
    case ScopeAction::Numeric:
      return true;
    case ScopeAction::BarGraph:
    case ScopeAction::Graph:
    case ScopeAction::Single:
    case ScopeAction::XY:
      return scope.isNumber();
  }
  return false;
}

void setAutomatic(oTarnScope& scope, bool automatic) {
  if (const oTarnGraph* const graph = scope.oTarnGraph())
    scope.ChangeAxeY(automatic, graph->AxeYmini, graph->AxeYmaxi);
  if (const oTarnGraphAxeX* const axis = scope.oTarnGraphAxeX())
    scope.ChangeAxeY(automatic, axis->axeXmini, axis->axeXmaxi);
}

/// True for the actions that change settings, and leave alone how the items are shown.
bool changeSettings(ScopeAction action, const std::vector<oTarnScope*>& items) {
  std::size_t coloured = 0;
  for (oTarnScope* const scope : items) {
    if (!actsOn(action, *scope)) continue;
    if (action == ScopeAction::Colours) scope->ChangeColor(distinctColour(coloured++));
    if (action == ScopeAction::EmptyCaption) scope->ChangeCaption("");
    if (action == ScopeAction::AutomaticOn) setAutomatic(*scope, true);
    if (action == ScopeAction::AutomaticOff) setAutomatic(*scope, false);
  }
  return action == ScopeAction::Colours || action == ScopeAction::EmptyCaption ||
         action == ScopeAction::AutomaticOn || action == ScopeAction::AutomaticOff;
}

}  // namespace

bool actsOn(ScopeAction action, const std::vector<oTarnScope*>& items) {
  return std::any_of(items.begin(), items.end(),
                     [action](const oTarnScope* scope) { return actsOn(action, *scope); });
}

bool applyPoints(std::int32_t points, const std::vector<oTarnScope*>& items) {
  bool changed = false;
  for (oTarnScope* const scope : items) {
    oTarnGraph* const graph = scope->oTarnGraph();
    if (graph == nullptr) continue;
    changed |= graph->points != points;
    graph->points = points;
  }
  return changed;
}

bool applyAction(ScopeAction action, oTarnParameters& parameters, const std::vector<oTarnScope*>& items) {
  if (items.empty()) return false;
  if (action == ScopeAction::Unify) return unifyPoints(items);
  if (changeSettings(action, items)) return actsOn(action, items);
  if (action == ScopeAction::Single || action == ScopeAction::XY) oneGraph(items);
  if (action == ScopeAction::XY) lastGivesXAxis(items);
  for (oTarnScope* const scope : items) {
    if (action == ScopeAction::None) scope->SetNone();
    if (action == ScopeAction::Numeric) scope->SetNumeric("");
    if (action == ScopeAction::BarGraph) scope->SetSlide("", kMini, kMaxi, paletteColour(0));
    if (action == ScopeAction::Graph) makeGraph(*scope);
  }
  parameters.CheckAndCorrect();
  return true;
}

}  // namespace tarnlog
