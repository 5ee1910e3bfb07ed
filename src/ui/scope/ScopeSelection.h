#pragma once

#include <vector>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// What the context menu does to the selected data items.
enum class ScopeAction {
  None,
  Numeric,
  BarGraph,
  Graph,   ///< a graph for each
  Single,  ///< one graph: the first item's, the others are curves on it
  XY,      ///< the same, with the last item as X axis
  Unify    ///< all graphs get the first one's number of points
};

/// `items` are in list order. What the value type of an item does not allow leaves it as it is.
/// True when something may have changed.
bool applyAction(ScopeAction action, oTarnParameters& parameters, const std::vector<oTarnScope*>& items);

}  // namespace tarnlog
