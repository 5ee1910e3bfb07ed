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
    if (reference.type == oTarnScope::kGraphIndex) reference.curve = *scope.oTarnGraphIndex;
    references_.push_back(std::move(reference));
  }
}

bool RemovedItems::remove(oTarnParameters& parameters, std::int32_t position) {
  auto scope = parameters.removeScope(position);
  if (scope == nullptr) return false;
  keys_.push_back(scope->DataKey);
  removed_.push_back({std::move(scope), position});
  return true;
}

bool RemovedItems::wasRemoved(const std::string& key) const {
  return std::binary_search(keys_.begin(), keys_.end(), key);
}

std::vector<oTarnScope*> RemovedItems::putBack(oTarnParameters& parameters) {
  std::sort(keys_.begin(), keys_.end());
  std::vector<oTarnScope*> back;
  while (!removed_.empty()) {
    Removed item = std::move(removed_.back());
    removed_.pop_back();
    if (parameters.Item(item.scope->DataKey) == nullptr)
      back.push_back(&parameters.insertScope(std::move(item.scope), item.position));
  }
  for (const Reference& reference : references_) restore(reference, parameters);
  const auto watchAgain = [&](oTarnTrigger& trigger, const std::string& channel) {
    const oTarnScope* const scope = wasRemoved(channel) ? parameters.Item(channel) : nullptr;
    if (scope == nullptr || trigger.typeTrigger != oTarnTrigger::kManual) return;
    trigger.typeTrigger = oTarnTrigger::kChannel;
    trigger.DataIndex = scope->index;
  };
  watchAgain(*parameters.startTrigger, startChannel_);
  watchAgain(*parameters.stopTrigger, stopChannel_);
  std::sort(back.begin(), back.end(), [](const auto* a, const auto* b) { return a->index < b->index; });
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
