#pragma once

#include <memory>
#include <string>

#include "config/oTarnParameters.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::test {

/// Display types by their number: none, digital, bar, graph, curve on a graph, X axis of a graph.
inline constexpr char kScopeLetters[] = "NDBGIX";

/// The display of an item: "G", or "I1" for a curve on the graph of item 1.
inline std::string displayText(oTarnScope& scope) {
  std::string text(1, kScopeLetters[static_cast<std::size_t>(scope.ScopeType())]);
  if (const std::int32_t* const reference = scope.graphReference()) text += std::to_string(*reference);
  return text;
}

/// The items in order, by key or by name: "Speed:G Load:I1"; an `index` that is not the position shows behind
/// a
/// "#".
inline std::string scopesText(const oTarnParameters& parameters, std::string oTarnScope::*name) {
  std::string text;
  std::int32_t position = 0;
  for (oTarnScope& scope : parameters) {
    text += (text.empty() ? "" : " ") + scope.*name + ":" + displayText(scope);
    if (scope.index != ++position) text += "#" + std::to_string(scope.index);
  }
  return text;
}

inline void watch(oTarnTrigger& trigger, std::int32_t index) {
  trigger.typeTrigger = oTarnTrigger::kChannel;
  trigger.DataIndex = index;
}

/// Adds this datum to a configuration, without a display.
inline oTarnScope& addScope(oTarnParameters& parameters, const ScriptedData& data) {
  auto scope = std::make_unique<oTarnScope>();
  scope->DataKey = "c" + std::to_string(parameters.Count());
  scope->DataName = data.name();
  scope->RequestName = data.request().name();
  scope->EcuName = data.request().ecu().name();
  scope->FunctionName = data.request().ecu().functionName();
  scope->varType = data.typeCode();
  scope->index = parameters.Count() + 1;
  return parameters.AddScope(std::move(scope));
}

}  // namespace tarnlog::test
