#include "ui/select/RemovedItems.h"

#include <algorithm>
#include <utility>

namespace tarnlog {

namespace {

std::string keyAt(const oTarnParameters& parameters, std::int32_t position) {
  const oTarnScope* const scope =
      position < 1 ? nullptr : parameters.Item(static_cast<std::size_t>(position));
  return scope == nullptr ? std::string() : scope->DataKey;
}

std::string channelOf(const oTarnParameters& parameters, const oTarnTrigger& trigger) {
  return trigger.typeTrigger == oTarnTrigger::kChannel ? keyAt(parameters, trigger.DataIndex) : std::string();
}

}  // namespace

RemovedItems::RemovedItems(const oTarnParameters& parameters)
    : startChannel_(channelOf(parameters, *parameters.startTrigger)),
      stopChannel_(channelOf(parameters, *parameters.stopTrigger)) {
  for (oTarnScope& scope : parameters) {
    const std::int32_t* const to = scope.graphReference();
    if (to == nullptr) continue;
    Reference reference{scope.DataKey, keyAt(parameters, *to), scope.ScopeType(), {}};
    if (const oTarnGraphIndex* const curve = scope.oTarnGraphIndex()) reference.curve = *curve;
    references_.push_back(std::move(reference));
  }
}

void RemovedItems::remove(oTarnParameters& parameters, const std::vector<std::int32_t>& positions) {
  for (auto& scope : parameters.removeScopes(positions)) {
    keys_.push_back(scope->DataKey);
    const std::int32_t position = scope->index;
    removed_.push_back({std::move(scope), position});
  }
  std::sort(keys_.begin(), keys_.end());
}

bool RemovedItems::wasRemoved(const std::string& key) const {
  return std::binary_search(keys_.begin(), keys_.end(), key);
}

std::vector<oTarnScope*> RemovedItems::putBack(oTarnParameters& parameters) {
  std::vector<oTarnScope*> back;
  std::vector<oTarnParameters::PlacedScope> placed;
  for (auto& item : std::exchange(removed_, {})) {
    if (parameters.Item(item.scope->DataKey) != nullptr) continue;
    back.push_back(item.scope.get());
    placed.push_back(std::move(item));
  }
  parameters.insertScopes(std::move(placed));
  for (const Reference& reference : references_) restore(reference, parameters);
  const auto watchAgain = [&](oTarnTrigger& trigger, const std::string& channel) {
    const oTarnScope* const scope = wasRemoved(channel) ? parameters.Item(channel) : nullptr;
    if (scope == nullptr || trigger.typeTrigger != oTarnTrigger::kManual) return;
    trigger.typeTrigger = oTarnTrigger::kChannel;
    trigger.DataIndex = scope->index;
  };
  watchAgain(*parameters.startTrigger, startChannel_);
  watchAgain(*parameters.stopTrigger, stopChannel_);
  return back;
}

/// What stands before its graph since, or has lost it, is not restored; if it was removed itself, it becomes
/// a Graph.
void RemovedItems::restore(const Reference& reference, oTarnParameters& parameters) const {
  oTarnScope* const from = parameters.Item(reference.from);
  if (from == nullptr) return;
  const oTarnScope* const to = parameters.Item(reference.to);
  const std::int32_t position = to != nullptr && to->index < from->index ? to->index : 0;
  if (position == 0) {
    if (wasRemoved(reference.from)) from->setScopeType(oTarnScope::kGraph);
  } else if (from->ScopeType() == reference.type) {
    *from->graphReference() = position;
  } else if (reference.type == oTarnScope::kGraphIndex && wasRemoved(reference.to)) {
    from->SetGraphIndex(reference.curve.Color, static_cast<float>(position));
    from->ChangeCaption(reference.curve.Caption);
  }
}

}  // namespace tarnlog
