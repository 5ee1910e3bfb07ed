#include "ui/scope/ReadableColour.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/Readable.h"

namespace tarnlog {

namespace {

constexpr double kReadable = 3;
constexpr float kStep = 0.1F;

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

QColor readableOn(const QColor& background, const QColor& text, const QColor& colour) {
  QColor mixed = colour;
  for (int step = 1; step <= 10 && contrast(mixed, background) < kReadable; ++step)
    mixed = blend(colour, text, kStep * static_cast<float>(step));
  return mixed;
}

}  // namespace tarnlog
