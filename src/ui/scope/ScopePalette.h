#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tarnlog {

/// Colours that curves get one after the other, 0x00BBGGRR.
inline constexpr std::array<std::int32_t, 8> kScopePalette = {0xFF0000, 0x0000FF, 0x40FF00, 0x0080FF,
                                                              0x8000FF, 0x408000, 0xCA17B4, 0x000000};

/// Colours that are told apart beside each other, on a light and on a dark ground: the same, each at least
/// three times as bright or as dark as the ground.
inline constexpr std::array<std::int32_t, 8> kDistinctColours = {0xD0771F, 0x005ED5, 0x50981A, 0xD0599B,
                                                                 0x008A8A, 0x9F40D6, 0x9E9300, 0x808080};

inline std::int32_t distinctColour(std::size_t number) {
  return kDistinctColours[number % kDistinctColours.size()];
}

inline std::int32_t paletteColour(std::size_t number) { return kScopePalette[number % kScopePalette.size()]; }

}  // namespace tarnlog
