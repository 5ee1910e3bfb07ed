#pragma once

#include "config/oTarnParameters.h"

namespace tarnlog {

/// A loaded configuration keeps the indexes of its file, with gaps where items were dropped. This numbers the
/// items by their positions and maps what refers to them along: a trigger on an item that is gone becomes
/// manual, a curve on a graph that is gone keeps a reference to no item, which CheckAndCorrect repairs.
void mapStoredReferences(oTarnParameters& parameters);

}  // namespace tarnlog
