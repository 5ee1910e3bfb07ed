#include "ui/acquisition/Readable.h"

#include <algorithm>

namespace tarnlog {

QColor backgroundOn(const QPalette& palette, const QColor& colour) {
  if (!isDark(palette.color(QPalette::Window)) || isDark(colour)) return colour;
  return QColor::fromHsl(std::max(colour.hslHue(), 0), colour.hslSaturation(), 255 - colour.lightness());
}

}  // namespace tarnlog
