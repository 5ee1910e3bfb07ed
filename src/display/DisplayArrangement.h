#pragma once

#include "display/DisplayLayout.h"
#include "display/GrapheItem.h"

namespace tarnlog {

/// Places the controls that a block has at the layout's next place, and advances it. Nothing but geometry
/// changes.
void arrangeBlock(const GrapheItem& graphe, Twips frameWidth, DisplayLayout& layout);

}  // namespace tarnlog
