#pragma once

#include <cstddef>

namespace tarnlog::bench {

/// How often this program has asked for memory through `new`. Programs that link CountedAllocations.cpp
/// count.
std::size_t allocationCount();

}  // namespace tarnlog::bench
