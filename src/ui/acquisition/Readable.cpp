#include "ui/acquisition/Readable.h"

#include <algorithm>

namespace tarnlog {

QColor cellColour(const QPalette& palette, const QColor& colour) {
  if (!isDark(palette.color(QPalette::Window))) return colour;
  return QColor::fromHsl(std::max(colour.hslHue(), 0), colour.hslSaturation(), 255 - colour.lightness());
}

}  // namespace tarnlog
