#include "ui/scope/ScopeSelection.h"

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
  const oTarnGraph* first = nullptr;
  bool changed = false;
  for (oTarnScope* const scope : items) {
    oTarnGraph* const graph = scope->oTarnGraph();
    if (graph == nullptr) continue;
    if (first == nullptr) first = graph;
    changed |= graph->points != first->points;
    graph->points = first->points;
  }
  return changed;
}

}  // namespace

bool applyAction(ScopeAction action, oTarnParameters& parameters, const std::vector<oTarnScope*>& items) {
  if (items.empty()) return false;
  if (action == ScopeAction::Unify) return unifyPoints(items);
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
