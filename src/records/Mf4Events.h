#pragma once

#include "records/Mf4Layout.h"

namespace tarnlog {

/// Reads the EV blocks from this one on into the layout. A chain that breaks off leaves those before it.
void readMf4Events(const Mf4Blocks& blocks, std::uint64_t place, Mf4Layout& layout);

}  // namespace tarnlog
