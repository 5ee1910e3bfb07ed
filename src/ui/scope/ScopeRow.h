#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// What the list shows of a data item. A copy: the list stays whole while another screen removes items.
struct ScopeRow {
  std::string key;  ///< the item's DataKey
  std::string data;
  std::string request;
  std::string ecu;
  DisplayKind type = DisplayKind::kNone;
  std::string graph;                   ///< data name of the graph that a curve or an X axis belongs to
  std::optional<std::int32_t> colour;  ///< 0x00BBGGRR, of types that are drawn in a colour of their own
};

ScopeRow scopeRow(const oTarnParameters& parameters, const oTarnScope& scope);

/// Of all items, in order, in time that grows with their number.
std::vector<ScopeRow> scopeRows(const oTarnParameters& parameters);

}  // namespace tarnlog
