#include "ui/scope/ScopeOffers.h"

#include <unordered_set>

#include "platform/ferrox3/Value.h"

namespace tarnlog {

namespace {

std::vector<const oTarnScope*> graphsBefore(const oTarnParameters& parameters, const oTarnScope& scope) {
  std::vector<const oTarnScope*> graphs;
  for (std::int32_t position = 1; position < scope.index; ++position) {
    const oTarnScope* const earlier = parameters.Item(static_cast<std::size_t>(position));
    if (earlier == nullptr) break;
    if (earlier->ScopeType() == oTarnScope::kGraph) graphs.push_back(earlier);
  }
  return graphs;
}

}  // namespace

TypeOffer offeredTypes(const oTarnParameters& parameters, const oTarnScope& scope) {
  TypeOffer offer{{oTarnScope::kNone, oTarnScope::kDigital}, false, false};
  offer.number = scope.varType == ferrox3::kInteger || scope.varType == ferrox3::kDouble;
  offer.graphBefore = !graphsBefore(parameters, scope).empty();
  if (!offer.number) return offer;
  offer.types.insert(offer.types.end(), {oTarnScope::kBarGraph, oTarnScope::kGraph});
  if (offer.graphBefore)
    offer.types.insert(offer.types.end(), {oTarnScope::kGraphIndex, oTarnScope::kGraphAxeX});
  return offer;
}

std::vector<const oTarnScope*> offeredGraphs(const oTarnParameters& parameters, const oTarnScope& scope,
                                             std::int32_t type) {
  std::vector<const oTarnScope*> graphs = graphsBefore(parameters, scope);
  if (type != oTarnScope::kGraphAxeX) return graphs;
  std::unordered_set<std::int32_t> taken;
  for (const oTarnScope& other : parameters)
    if (&other != &scope && other.ScopeType() == oTarnScope::kGraphAxeX)
      taken.insert(other.oTarnGraphAxeX->index);
  std::erase_if(graphs, [&](const oTarnScope* graph) { return taken.contains(graph->index); });
  return graphs;
}

}  // namespace tarnlog
