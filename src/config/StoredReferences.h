#pragma once

#include "config/oTarnParameters.h"

namespace tarnlog {

/// After a load, items still have the numbers of the file, with gaps where items were dropped. This numbers
/// them by position and maps what refers to them: channel triggers and the references of GraphIndex and
/// GraphAxeX items go on meaning the same data. A trigger whose item was dropped becomes manual. A reference
/// to a dropped item becomes 0, which designates nothing, so that it cannot end at whatever moved to that
/// place; `CheckAndCorrect` then turns the item into a Graph.
void mapStoredReferences(oTarnParameters& parameters);

}  // namespace tarnlog
