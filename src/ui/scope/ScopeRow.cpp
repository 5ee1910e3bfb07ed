#include "ui/scope/ScopeRow.h"

#include <unordered_map>

namespace tarnlog {

namespace {

std::optional<std::int32_t> ownColour(const oTarnScope& scope) {
  const auto find = [](const auto& settings) -> std::optional<std::int32_t> {
    if constexpr (requires { settings.Color; })
      return settings.Color;
    else
      return std::nullopt;
  };
  return std::visit(find, scope.display());
}

/// `find` gives the item of an `index`, or null.
template <class Find>
ScopeRow makeRow(const oTarnScope& scope, Find find) {
  ScopeRow row{scope.DataKey,   scope.DataName, scope.RequestName, scope.EcuName, scope.ScopeType(), {},
               ownColour(scope)};
  if (const std::int32_t* const reference = scope.graphReference())
    if (const oTarnScope* const graph = find(*reference)) row.graph = graph->DataName;
  return row;
}

}  // namespace

ScopeRow scopeRow(const oTarnParameters& parameters, const oTarnScope& scope) {
  return makeRow(scope, [&](std::int32_t index) { return parameters.ItemIndex(index); });
}

std::vector<ScopeRow> scopeRows(const oTarnParameters& parameters) {
  std::unordered_map<std::int32_t, const oTarnScope*> byIndex;  // ItemIndex walks the list for each call
  for (const oTarnScope& scope : parameters) byIndex.emplace(scope.index, &scope);
  const auto find = [&](std::int32_t index) {
    const auto found = byIndex.find(index);
    return found == byIndex.end() ? nullptr : found->second;
  };
  std::vector<ScopeRow> rows;
  rows.reserve(byIndex.size());
  for (const oTarnScope& scope : parameters) rows.push_back(makeRow(scope, find));
  return rows;
}

}  // namespace tarnlog
