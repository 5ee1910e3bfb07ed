#pragma once

#include <cstddef>
#include <memory>

namespace tarnlog {

/// Memory for what is large and stays, at most 2 MB. Pieces share pages of that size, where the system has
/// them, as filling those is much cheaper; a page goes when none of its pieces is used any more.
std::shared_ptr<std::byte[]> largeMemory(std::size_t bytes);

}  // namespace tarnlog
