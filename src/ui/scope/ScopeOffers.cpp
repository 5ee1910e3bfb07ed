#include "ui/scope/ScopeOffers.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

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

bool offers(const TypeOffer& offer, DisplayKind kind) {
  switch (kind) {
    case DisplayKind::kNone:
    case DisplayKind::kDigital:
      return true;
    case DisplayKind::kBarGraph:
    case DisplayKind::kGraph:
      return offer.number;
    case DisplayKind::kGraphIndex:
    case DisplayKind::kGraphAxeX:
      return offer.number && offer.graphBefore;
  }
  return false;
}

}  // namespace

TypeOffer offeredTypes(const oTarnParameters& parameters, const oTarnScope& scope) {
  TypeOffer offer{{}, scope.isNumber(), !graphsBefore(parameters, scope).empty()};
  std::copy_if(kDisplayKinds.begin(), kDisplayKinds.end(), std::back_inserter(offer.types),
               [&](DisplayKind kind) { return offers(offer, kind); });
  return offer;
}

std::vector<const oTarnScope*> offeredGraphs(const oTarnParameters& parameters, const oTarnScope& scope,
                                             DisplayKind type) {
  std::vector<const oTarnScope*> graphs = graphsBefore(parameters, scope);
  if (type != oTarnScope::kGraphAxeX) return graphs;
  std::unordered_set<std::int32_t> taken;
  for (const oTarnScope& other : parameters)
    if (&other != &scope && other.ScopeType() == oTarnScope::kGraphAxeX)
      taken.insert(*other.graphReference());
  std::erase_if(graphs, [&](const oTarnScope* graph) { return taken.contains(graph->index); });
  return graphs;
}

}  // namespace tarnlog
