#pragma once

#include <QFont>
#include <string_view>

namespace tarnlog {

/// Height of a line in labels, bars and graphs, pixels: a bar is 28 pixels high and has two labels.
inline constexpr int kLineHeight = 13;

/// The desktop's font, as large as fits into lines of this height. Not below 6 pixels.
QFont fittedFont(const QFont& wanted, int lineHeight);
/// The font of this name and size. Points become pixels as twips do (15 to the pixel), whatever the screen's
/// own resolution; "MS Sans Serif" is the desktop's font.
QFont screenFont(const QFont& desktop, std::string_view family, int points, bool bold, bool italic);

}  // namespace tarnlog
