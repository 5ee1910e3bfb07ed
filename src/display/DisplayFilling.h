#pragma once

#include "config/oTarnScope.h"
#include "display/GrapheItems.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// Adds to the display model what the item's display settings ask for: a block of its own, a curve on an
/// earlier graph, or the X axis of an earlier graph. Call it once per recorded item, in configuration order.
/// An item that refers to a graph which is not there (yet) is not displayed.
void addScopeToDisplay(GrapheItems& graphes, const oTarnScope& scope, ferrox3::DataItem& data);

}  // namespace tarnlog
