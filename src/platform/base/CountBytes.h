#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnlog {

/// How many bytes of a text are such ones. Counts in blocks that fit the narrow counters of vector
/// instructions, so that one look at a whole row is cheaper than one at each of its cells.
template <class Predicate>
std::size_t countBytes(std::string_view text, Predicate isOne) {
  constexpr std::size_t kBlock = 255;
  std::size_t count = 0;
  while (!text.empty()) {
    const std::string_view block = text.substr(0, kBlock);
    std::uint8_t inBlock = 0;
    for (const char c : block) inBlock = static_cast<std::uint8_t>(inBlock + (isOne(c) ? 1 : 0));
    count += inBlock;
    text.remove_prefix(block.size());
  }
  return count;
}

}  // namespace tarnlog
