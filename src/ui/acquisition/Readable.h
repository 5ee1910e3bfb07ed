#pragma once

#include <QColor>
#include <QPalette>

/// Colours of the configuration as they can be read on this desktop. They are chosen anew at each change of
/// the palette; the configuration keeps what the user chose.
namespace tarnlog {

inline constexpr double kTextContrast = 3.5;
/// A thin line is seen by its hue as well; on paper only the palest colours are lost.
inline constexpr double kCurveContrast = 1.3;
inline constexpr double kCurveContrastOnDark = 3.0;

bool isDark(const QColor& background);
/// Ratio of luminances, 1 (none) to 21 (black on white), as WCAG 2 defines it.
double contrastOf(const QColor& a, const QColor& b);
/// The colour itself, or the nearest lighter or darker one that stands out of this background.
QColor readable(const QColor& colour, const QColor& background, double contrast);
QColor readableCurve(const QColor& colour, const QColor& background);
/// A light grey made for black text becomes an equally dark one on a dark desktop.
QColor backgroundOn(const QPalette& palette, const QColor& colour);

}  // namespace tarnlog
