#include "config/oTarnParameters.h"

#include <array>
#include <utility>

#include "config/RegisterParameters.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kBlue = 0xFF0000;

/// A curve or X axis that lost its graph gets one of its own.
void becomeGraph(oTarnScope& scope, const std::string& caption, std::int32_t color) {
  scope.SetGraph(caption, true, 0, 100, 500, color);
}

bool refersToGraph(const oTarnScope& scope) {
  return scope.ScopeType() == oTarnScope::kGraphIndex || scope.ScopeType() == oTarnScope::kGraphAxeX;
}

std::int32_t& graphReference(oTarnScope& scope) {
  return scope.ScopeType() == oTarnScope::kGraphIndex ? scope.oTarnGraphIndex->index
                                                      : scope.oTarnGraphAxeX->index;
}

void becomeGraphWithOwnLook(oTarnScope& scope) {
  if (scope.ScopeType() == oTarnScope::kGraphIndex)
    becomeGraph(scope, scope.oTarnGraphIndex->Caption, scope.oTarnGraphIndex->Color);
  else
    becomeGraph(scope, scope.oTarnGraphAxeX->Caption, kBlue);
}

std::int32_t storedPeriod(const SettingsStore& settings) {
  const std::string text = GetRegisterParameter(settings, kRegisterPeriod, "1");
  const std::int32_t period = leadingInteger(text);
  return period >= 0 && wholeInteger(text) ? period : 1;
}

void forgetOrShift(oTarnTrigger& trigger, std::int32_t removed) {
  if (trigger.typeTrigger != oTarnTrigger::kChannel) return;
  if (trigger.DataIndex == removed)
    trigger.typeTrigger = oTarnTrigger::kManual;
  else if (trigger.DataIndex > removed)
    --trigger.DataIndex;
}

}  // namespace

oTarnParameters::oTarnParameters(const SettingsStore& settings)
    : startTrigger(std::make_shared<oTarnTrigger>()),
      stopTrigger(std::make_shared<oTarnTrigger>()),
      initScenario(std::make_shared<oScenario>()) {
  stopTrigger->modeTrigger = 1;
  recordingPeriod = storedPeriod(settings);
  fileFolder = GetRegisterParameter(settings, kRegisterPathName, "");
  fileFormat = GetRegisterParameter(settings, kRegisterFormat, ".txt");
}

oTarnScope& oTarnParameters::Add(const std::string& key) {
  return scopes_.Add(std::make_unique<oTarnScope>(), key);
}

oTarnScope& oTarnParameters::AddScope(std::unique_ptr<oTarnScope> scope) {
  std::string key = scope->DataKey;
  return scopes_.Add(std::move(scope), std::move(key));
}

oTarnScope* oTarnParameters::ItemIndex(std::int32_t index) const {
  for (oTarnScope& scope : scopes_)
    if (scope.index == index) return &scope;
  return nullptr;
}

void oTarnParameters::RemoveAll() {
  for (oTarnScope& scope : scopes_) scope.Clear();
  scopes_.RemoveAll();
}

void oTarnParameters::removeScope(std::int32_t position) {
  if (position < 1 || position > Count()) return;
  forgetOrShift(*startTrigger, position);
  forgetOrShift(*stopTrigger, position);
  const auto at = static_cast<std::size_t>(position);
  if (Item(at)->ScopeType() == oTarnScope::kGraph) {
    for (oTarnScope& scope : scopes_)
      if (scope.ScopeType() == oTarnScope::kGraphIndex && scope.oTarnGraphIndex->index == position)
        becomeGraph(scope, "", kBlue);
  }
  for (std::size_t i = at + 1; i <= scopes_.Count(); ++i) {
    const oTarnScope& scope = *Item(i);
    if (scope.ScopeType() == oTarnScope::kGraphIndex && scope.oTarnGraphIndex->index > position)
      --scope.oTarnGraphIndex->index;
  }
  scopes_.Remove(at);
  std::int32_t index = 0;
  for (oTarnScope& scope : scopes_) scope.index = ++index;
}

void oTarnParameters::changeScopeOrder(oTarnScope& moved, oTarnScope& target) {
  const std::int32_t from = moved.index;
  const std::int32_t to = target.index;
  const auto watchedBy = [&](const oTarnTrigger& trigger) -> const oTarnScope* {
    return trigger.typeTrigger == oTarnTrigger::kChannel && trigger.DataIndex > 0
               ? Item(static_cast<std::size_t>(trigger.DataIndex))
               : nullptr;
  };
  const std::array<std::pair<oTarnTrigger*, const oTarnScope*>, 2> watched = {
      std::pair{startTrigger.get(), watchedBy(*startTrigger)},
      std::pair{stopTrigger.get(), watchedBy(*stopTrigger)}};

  if (from != to) {
    std::unique_ptr<oTarnScope> item = scopes_.take(scopes_.positionOf(moved));
    const std::size_t targetPosition = scopes_.positionOf(target);
    std::string key = item->DataKey;
    scopes_.insertAt(from > to ? targetPosition : targetPosition + 1, std::move(item), std::move(key));
  }
  std::int32_t position = 0;
  for (oTarnScope& scope : scopes_) {
    scope.index = ++position;
    if (refersToGraph(scope)) referToNewOrder(scope, moved, target, from, to, position);
  }
  for (const auto& [trigger, scope] : watched)
    if (scope != nullptr) trigger->DataIndex = scope->index;
}

/// One step of the walk in which items are renumbered: items behind `position` still hold their old index, on
/// purpose.
void oTarnParameters::referToNewOrder(oTarnScope& dependent, const oTarnScope& moved,
                                      const oTarnScope& target, std::int32_t from, std::int32_t to,
                                      std::int32_t position) {
  std::int32_t& reference = graphReference(dependent);
  if (reference == from) {
    if (moved.index >= from && moved.index >= position)
      becomeGraphWithOwnLook(dependent);
    else
      reference = moved.index;
  } else if (reference >= position) {
    becomeGraphWithOwnLook(dependent);
  } else if (reference == to) {
    reference = target.index;
  }
}

void oTarnParameters::CheckAndCorrect() {
  for (oTarnScope& scope : scopes_) {
    if (!refersToGraph(scope)) continue;
    const std::int32_t reference = graphReference(scope);
    const oTarnScope* const graph = reference > 0 ? Item(static_cast<std::size_t>(reference)) : nullptr;
    if (graph == nullptr || graph->ScopeType() != oTarnScope::kGraph) becomeGraph(scope, "", kBlue);
  }
}

}  // namespace tarnlog
