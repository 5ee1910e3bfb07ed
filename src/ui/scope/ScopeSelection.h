#pragma once

#include <cstdint>
#include <vector>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// What the context menu does to the selected data items.
enum class ScopeAction {
  None,
  Numeric,
  BarGraph,
  Graph,    ///< a graph for each
  Single,   ///< one graph: the first item's, the others are curves on it
  XY,       ///< the same, with the last item as X axis
  Unify,    ///< all graphs get the first one's number of points
  Colours,  ///< graphs and curves get colours that are told apart, one after the other
  EmptyCaption,
  AutomaticOn,  ///< axes follow the values
  AutomaticOff
};

/// Whether there is an item among them that the action is for.
bool actsOn(ScopeAction action, const std::vector<oTarnScope*>& items);

/// Of the graphs among the items. True when something changed.
bool applyPoints(std::int32_t points, const std::vector<oTarnScope*>& items);

/// `items` are in list order. What the value type of an item does not allow leaves it as it is.
/// True when something may have changed.
bool applyAction(ScopeAction action, oTarnParameters& parameters, const std::vector<oTarnScope*>& items);

}  // namespace tarnlog
