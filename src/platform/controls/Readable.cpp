#include "platform/controls/Readable.h"

#include <algorithm>
#include <cmath>

namespace tarnlog {
namespace {

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

QColor blend(const QColor& below, const QColor& above, float part) {
  const auto mix = [part](float a, float b) { return a + (b - a) * part; };
  return QColor::fromRgbF(mix(below.redF(), above.redF()), mix(below.greenF(), above.greenF()),
                          mix(below.blueF(), above.blueF()));
}

bool isDark(const QColor& background) { return luminance(background) < 0.18; }

double contrastOf(const QColor& a, const QColor& b) {
  const double one = luminance(a) + 0.05;
  const double other = luminance(b) + 0.05;
  return std::max(one, other) / std::min(one, other);
}

QColor readable(const QColor& colour, const QColor& background, double contrast) {
  const QColor target = isDark(background) ? Qt::white : Qt::black;
  QColor result = colour;
  for (float part = 0.0625F; part <= 1 && contrastOf(result, background) < contrast; part += 0.0625F)
    result = blend(colour, target, part);
  return result;
}

QColor readableCurve(const QColor& colour, const QColor& background) {
  return readable(colour, background, isDark(background) ? kCurveContrastOnDark : kCurveContrast);
}

QColor cellColour(const QPalette& palette, const QColor& colour) {
  if (!isDark(palette.color(QPalette::Window))) return colour;
  return QColor::fromHsl(std::max(colour.hslHue(), 0), colour.hslSaturation(), 255 - colour.lightness());
}

}  // namespace tarnlog
