#include <string>
#include <utility>

#include "config/oTarnParameters.h"

/// Keeps the positions by which data items and triggers refer to data items right when items are removed or
/// moved.
namespace tarnlog {

namespace {

constexpr std::int32_t kPoints = 500;
constexpr std::int32_t kOwnColor = 0xFF0000;

void makeGraph(oTarnScope& scope, const std::string& caption, std::int32_t color) {
  scope.SetGraph(caption, true, 0, 100, kPoints, color);
}

/// With what the user sees of the curve so far.
void makeGraphKeepingLooks(oTarnScope& scope) {
  if (scope.ScopeType() == oTarnScope::kGraphIndex) {
    const oTarnGraphIndex settings = *scope.oTarnGraphIndex;
    makeGraph(scope, settings.Caption, settings.Color);
  } else {
    const std::string caption = scope.oTarnGraphAxeX->Caption;
    makeGraph(scope, caption, kOwnColor);
  }
}

oTarnScope* itemAt(const oTarnParameters& parameters, std::int32_t position) {
  return position < 1 ? nullptr : parameters.Item(static_cast<std::size_t>(position));
}

/// Item `removed` is about to go.
void unwatch(oTarnTrigger& trigger, std::int32_t removed) {
  if (trigger.typeTrigger != oTarnTrigger::kChannel) return;
  if (trigger.DataIndex == removed)
    trigger.typeTrigger = oTarnTrigger::kManual;
  else if (trigger.DataIndex > removed)
    --trigger.DataIndex;
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

void oTarnParameters::removeScope(std::int32_t position) {
  const oTarnScope* const removed = itemAt(*this, position);
  if (removed == nullptr) return;
  unwatch(*startTrigger, position);
  unwatch(*stopTrigger, position);
  if (removed->ScopeType() == oTarnScope::kGraph)
    for (oTarnScope& scope : scopes_)
      if (scope.ScopeType() == oTarnScope::kGraphIndex && scope.oTarnGraphIndex->index == position)
        makeGraph(scope, "", kOwnColor);
  for (std::int32_t behind = position + 1; behind <= Count(); ++behind) {
    oTarnScope& scope = *itemAt(*this, behind);
    if (scope.ScopeType() == oTarnScope::kGraphIndex && scope.oTarnGraphIndex->index > position)
      --scope.oTarnGraphIndex->index;
  }
  Remove(static_cast<std::size_t>(position));
  renumber();
}

void oTarnParameters::changeScopeOrder(oTarnScope& moved, oTarnScope& target) {
  const std::int32_t from = moved.index;
  const std::int32_t to = target.index;
  const oTarnScope* const startItem = watchedItem(*this, *startTrigger);
  const oTarnScope* const stopItem = watchedItem(*this, *stopTrigger);
  if (from != to) {
    auto item = scopes_.take(scopes_.positionOf(moved));
    const std::size_t place = scopes_.positionOf(target) + (from < to ? 1 : 0);
    scopes_.insertAt(place, std::move(item), moved.DataKey);
  }
  std::int32_t position = 0;
  for (oTarnScope& scope : scopes_) {
    scope.index = ++position;
    if (std::int32_t* const reference = scope.graphReference())
      repairReference(scope, *reference, from, moved, to, target);
  }
  if (startItem != nullptr) startTrigger->DataIndex = startItem->index;
  if (stopItem != nullptr) stopTrigger->DataIndex = stopItem->index;
}

void oTarnParameters::CheckAndCorrect() {
  for (oTarnScope& scope : scopes_) {
    const std::int32_t* const reference = scope.graphReference();
    if (reference == nullptr) continue;
    const oTarnScope* const graph = itemAt(*this, *reference);
    if (graph == nullptr || graph->ScopeType() != oTarnScope::kGraph) makeGraph(scope, "", kOwnColor);
  }
}

}  // namespace tarnlog
