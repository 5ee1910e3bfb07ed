#include "ui/common/Convert.h"

#include <cmath>

namespace tarnlog {

QColor toQColor(Colour colour, const QPalette& palette) {
  if (colour == kButtonFace) return palette.color(QPalette::Button);
  return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
          static_cast<int>(colour >> 16 & 0xFF)};
}

Colour fromQColor(const QColor& colour) {
  return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

int toPixels(Twips twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixel)); }

}  // namespace tarnlog
