#pragma once

#include "platform/screen/Controls.h"

/// Colours of the two indicators, 0x00BBGGRR. Every one has a caption or a button text beside it.
namespace tarnlog::indicator {

inline constexpr Colour kIdle = kButtonFace;
inline constexpr Colour kRecording = 0x0000FF;  ///< red
inline constexpr Colour kRequested = 0x00D0FF;  ///< orange: a start or stop is pending
inline constexpr Colour kOpened = 0x80FF80;     ///< light green: a record file has just been opened
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kYellow = 0x00FFFF;

}  // namespace tarnlog::indicator
