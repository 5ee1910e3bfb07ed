#pragma once

#include "display/GrapheItem.h"

namespace tarnlog {

/// Shows the current values of a block's data in its controls.
void refreshBlock(GrapheItem& graphe);

}  // namespace tarnlog
