#include "config/StoredReferences.h"

#include <cstdint>
#include <unordered_map>

namespace tarnlog {

namespace {

/// Where a stored index is shared by several items, triggers watch the last one and curves go to the first.
struct PositionsByIndex {
  std::unordered_map<std::int32_t, std::int32_t> first;
  std::unordered_map<std::int32_t, std::int32_t> last;
};

std::int32_t lookUp(const std::unordered_map<std::int32_t, std::int32_t>& positions, std::int32_t index) {
  const auto found = positions.find(index);
  return found == positions.end() ? 0 : found->second;
}

void mapTrigger(oTarnTrigger& trigger, const PositionsByIndex& positions) {
  if (trigger.typeTrigger != oTarnTrigger::kChannel) return;
  const std::int32_t position = lookUp(positions.last, trigger.DataIndex);
  if (position == 0) trigger.typeTrigger = oTarnTrigger::kManual;
  trigger.DataIndex = position;
}

}  // namespace

void mapStoredReferences(oTarnParameters& parameters) {
  PositionsByIndex positions;
  std::int32_t position = 0;
  for (oTarnScope& scope : parameters) {
    ++position;
    positions.first.emplace(scope.index, position);
    positions.last[scope.index] = position;
  }
  position = 0;
  for (oTarnScope& scope : parameters) {
    scope.index = ++position;
    if (scope.ScopeType() == oTarnScope::kGraphIndex)
      scope.oTarnGraphIndex->index = lookUp(positions.first, scope.oTarnGraphIndex->index);
    if (scope.ScopeType() == oTarnScope::kGraphAxeX)
      scope.oTarnGraphAxeX->index = lookUp(positions.first, scope.oTarnGraphAxeX->index);
  }
  mapTrigger(*parameters.startTrigger, positions);
  mapTrigger(*parameters.stopTrigger, positions);
}

}  // namespace tarnlog
