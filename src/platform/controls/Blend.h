#pragma once

#include <QColor>

namespace tarnlog {

/// `part` (0 to 1) of the second colour over the first.
inline QColor blend(const QColor& below, const QColor& above, float part) {
  const auto mix = [part](float a, float b) { return a + (b - a) * part; };
  return QColor::fromRgbF(mix(below.redF(), above.redF()), mix(below.greenF(), above.greenF()),
                          mix(below.blueF(), above.blueF()));
}

}  // namespace tarnlog
