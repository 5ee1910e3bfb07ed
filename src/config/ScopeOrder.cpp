#include <algorithm>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "config/oTarnParameters.h"

/// Keeps the positions by which data items and triggers refer to data items right when items are removed or
/// moved.
namespace tarnlog {

namespace {

/// With what the user sees of the curve or X axis so far.
void makeGraphKeepingLooks(oTarnScope& scope) {
  const DisplaySettings before = scope.display();
  scope.setScopeType(oTarnScope::kGraph);
  const auto keep = [&](const auto& settings) {
    if constexpr (requires { settings.Caption; }) scope.ChangeCaption(settings.Caption);
    if constexpr (requires { settings.Color; }) scope.ChangeColor(settings.Color);
  };
  std::visit(keep, before);
}

oTarnScope* itemAt(const oTarnParameters& parameters, std::int32_t position) {
  return position < 1 ? nullptr : parameters.Item(static_cast<std::size_t>(position));
}

/// Positions that are about to be left, and where the others go then.
class Leaving {
 public:
  Leaving(std::vector<std::int32_t> positions, std::int32_t count) : positions_(std::move(positions)) {
    std::sort(positions_.begin(), positions_.end());
    positions_.erase(std::unique(positions_.begin(), positions_.end()), positions_.end());
    positions_.erase(positions_.begin(), std::lower_bound(positions_.begin(), positions_.end(), 1));
    positions_.erase(std::upper_bound(positions_.begin(), positions_.end(), count), positions_.end());
  }
  const std::vector<std::int32_t>& positions() const { return positions_; }
  bool has(std::int32_t position) const {
    return std::binary_search(positions_.begin(), positions_.end(), position);
  }
  std::int32_t before(std::int32_t position) const {
    const auto behind = std::lower_bound(positions_.begin(), positions_.end(), position);
    return static_cast<std::int32_t>(behind - positions_.begin());
  }

 private:
  std::vector<std::int32_t> positions_;
};

void unwatch(oTarnTrigger& trigger, const Leaving& leaving) {
  if (trigger.typeTrigger != oTarnTrigger::kChannel) return;
  if (leaving.has(trigger.DataIndex))
    trigger.typeTrigger = oTarnTrigger::kManual;
  else
    trigger.DataIndex -= leaving.before(trigger.DataIndex);
}

/// After a rearrangement to `order` (the old positions in their new order), positions by which items and
/// channel triggers refer to an item are where that item is then. Other references stay.
void followItems(oTarnParameters& parameters, const std::vector<std::size_t>& order) {
  std::vector<std::int32_t> newPlace(order.size() + 1);
  std::int32_t place = 0;
  for (const std::size_t position : order) newPlace[position] = ++place;
  const auto follow = [&](std::int32_t& reference) {
    if (itemAt(parameters, reference) != nullptr) reference = newPlace[static_cast<std::size_t>(reference)];
  };
  for (oTarnScope& scope : parameters)
    if (std::int32_t* const reference = scope.graphReference()) follow(*reference);
  for (oTarnTrigger* const trigger : {parameters.startTrigger.get(), parameters.stopTrigger.get()})
    if (trigger->typeTrigger == oTarnTrigger::kChannel) follow(trigger->DataIndex);
}

/// The item that a channel trigger watches by position, or null.
const oTarnScope* watchedItem(const oTarnParameters& parameters, const oTarnTrigger& trigger) {
  return trigger.typeTrigger == oTarnTrigger::kChannel ? itemAt(parameters, trigger.DataIndex) : nullptr;
}

/// One step of the walk after a move from place `from` to place `to`. Items behind this one still have their
/// old `index`, and that matters: a reference to what now stands at or behind this item cannot be kept.
void repairReference(oTarnScope& scope, std::int32_t& reference, std::int32_t from, const oTarnScope& moved,
                     std::int32_t to, const oTarnScope& target) {
  if (reference == from) {
    if (moved.index >= from && moved.index >= scope.index)
      makeGraphKeepingLooks(scope);
    else
      reference = moved.index;
  } else if (reference >= scope.index) {
    makeGraphKeepingLooks(scope);
  } else if (reference == to) {
    reference = target.index;
  }
}

}  // namespace

void oTarnParameters::renumber() {
  std::int32_t position = 0;
  for (oTarnScope& scope : scopes_) scope.index = ++position;
}

std::unique_ptr<oTarnScope> oTarnParameters::removeScope(std::int32_t position) {
  auto removed = removeScopes({position});
  return removed.empty() ? nullptr : std::move(removed.front());
}

std::vector<std::unique_ptr<oTarnScope>> oTarnParameters::removeScopes(std::vector<std::int32_t> positions) {
  const Leaving leaving(std::move(positions), Count());
  unwatch(*startTrigger, leaving);
  unwatch(*stopTrigger, leaving);
  std::vector<std::size_t> order;
  std::int32_t position = 0;
  for (oTarnScope& scope : scopes_) {
    ++position;
    if (leaving.has(position)) continue;
    order.push_back(static_cast<std::size_t>(position));
    if (scope.ScopeType() != oTarnScope::kGraphIndex) continue;
    std::int32_t& reference = scope.oTarnGraphIndex()->index;
    const oTarnScope* const graph = itemAt(*this, reference);
    if (graph != nullptr && leaving.has(reference) && graph->ScopeType() == oTarnScope::kGraph)
      scope.setScopeType(oTarnScope::kGraph);
    else
      reference -= leaving.before(std::min(reference, position));
  }
  for (const std::int32_t place : leaving.positions()) order.push_back(static_cast<std::size_t>(place));
  scopes_.arrange(order);
  std::vector<std::unique_ptr<oTarnScope>> removed(leaving.positions().size());
  std::generate(removed.rbegin(), removed.rend(), [this] { return scopes_.take(scopes_.Count()); });
  renumber();
  return removed;
}

void oTarnParameters::insertScopes(std::vector<PlacedScope> placed) {
  const std::size_t before = scopes_.Count();
  std::vector<std::size_t> order;
  std::size_t next = 0;
  for (std::size_t at = 1; order.size() < before + placed.size();) {
    const auto place = static_cast<std::int32_t>(order.size()) + 1;
    if (next < placed.size() && (at > before || placed[next].position <= place)) {
      order.push_back(before + ++next);
    } else {
      order.push_back(at++);
    }
  }
  followItems(*this, order);
  for (PlacedScope& each : placed) AddScope(std::move(each.scope));
  scopes_.arrange(order);
  renumber();
}

void oTarnParameters::changeScopeOrder(oTarnScope& moved, oTarnScope& target) {
  const std::int32_t from = moved.index;
  const std::int32_t to = target.index;
  const oTarnScope* const startItem = watchedItem(*this, *startTrigger);
  const oTarnScope* const stopItem = watchedItem(*this, *stopTrigger);
  if (from != to) scopes_.move(scopes_.positionOf(moved), scopes_.positionOf(target));
  std::int32_t position = 0;
  for (oTarnScope& scope : scopes_) {
    scope.index = ++position;
    if (std::int32_t* const reference = scope.graphReference())
      repairReference(scope, *reference, from, moved, to, target);
  }
  if (startItem != nullptr) startTrigger->DataIndex = startItem->index;
  if (stopItem != nullptr) stopTrigger->DataIndex = stopItem->index;
}

void oTarnParameters::moveScopes(const std::vector<oTarnScope*>& moved, const oTarnScope* before) {
  renumber();
  const auto place = [](const oTarnScope& scope) { return static_cast<std::size_t>(scope.index); };
  std::vector<bool> moves(scopes_.Count() + 1);
  for (const oTarnScope* const scope : moved) moves[place(*scope)] = true;
  std::vector<std::size_t> order;
  const auto appendMoved = [&] {
    for (const oTarnScope* const scope : moved) order.push_back(place(*scope));
  };
  for (const oTarnScope& scope : scopes_) {
    if (&scope == before) appendMoved();
    if (!moves[place(scope)]) order.push_back(place(scope));
  }
  if (before == nullptr) appendMoved();
  followItems(*this, order);
  scopes_.arrange(order);
  renumber();
  for (oTarnScope& scope : scopes_) {
    const std::int32_t* const reference = scope.graphReference();
    if (reference != nullptr && *reference >= scope.index && *reference <= Count())
      makeGraphKeepingLooks(scope);
  }
}

void oTarnParameters::CheckAndCorrect() {
  for (oTarnScope& scope : scopes_) {
    const std::int32_t* const reference = scope.graphReference();
    if (reference == nullptr) continue;
    const oTarnScope* const graph = itemAt(*this, *reference);
    if (graph == nullptr || graph->ScopeType() != oTarnScope::kGraph) scope.setScopeType(oTarnScope::kGraph);
  }
}

}  // namespace tarnlog
