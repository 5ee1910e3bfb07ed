#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tarnlog {

/// Colours that curves get one after the other, 0x00BBGGRR.
inline constexpr std::array<std::int32_t, 8> kScopePalette = {0xFF0000, 0x0000FF, 0x40FF00, 0x0080FF,
                                                              0x8000FF, 0x408000, 0xCA17B4, 0x000000};

inline std::int32_t paletteColour(std::size_t number) { return kScopePalette[number % kScopePalette.size()]; }

}  // namespace tarnlog
