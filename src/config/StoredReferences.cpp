#include "config/StoredReferences.h"

#include <cstdint>
#include <unordered_map>

namespace tarnlog {

namespace {

/// From numbers of the file to positions; 0 for a number that no item has.
class Positions {
 public:
  /// A later item replaces an earlier one of the same number only when `replace` says so.
  void note(std::int32_t stored, std::int32_t position, bool replace) {
    const bool added = positions_.emplace(stored, position).second;
    if (!added && replace) positions_[stored] = position;
  }
  std::int32_t of(std::int32_t stored) const {
    const auto found = positions_.find(stored);
    return found == positions_.end() ? 0 : found->second;
  }

 private:
  std::unordered_map<std::int32_t, std::int32_t> positions_;
};

void mapTrigger(oTarnTrigger& trigger, const Positions& watched) {
  if (trigger.typeTrigger != oTarnTrigger::kChannel) return;
  const std::int32_t position = watched.of(trigger.DataIndex);
  if (position == 0)
    trigger.typeTrigger = oTarnTrigger::kManual;
  else
    trigger.DataIndex = position;
}

}  // namespace

void mapStoredReferences(oTarnParameters& parameters) {
  // Files may give several items the same number: a trigger then watches the last of them, a curve is drawn
  // on the first that is a Graph.
  Positions watched, graphs;
  std::int32_t position = 0;
  for (const oTarnScope& scope : parameters) {
    watched.note(scope.index, ++position, true);
    if (scope.ScopeType() == oTarnScope::kGraph) graphs.note(scope.index, position, false);
  }
  mapTrigger(*parameters.startTrigger, watched);
  mapTrigger(*parameters.stopTrigger, watched);
  for (oTarnScope& scope : parameters)
    if (std::int32_t* const reference = scope.graphReference()) *reference = graphs.of(*reference);
  parameters.renumber();
}

}  // namespace tarnlog
