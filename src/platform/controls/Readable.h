#pragma once

#include <QColor>
#include <QPalette>

/// Colours as they can be read on a background. For painting only: what was chosen stays as it is.
namespace tarnlog {

/// A thin line is seen by its hue as well; on paper only the palest colours are lost.
inline constexpr double kCurveContrast = 1.3;
inline constexpr double kCurveContrastOnDark = 3.0;
inline constexpr double kTextContrast = 3.5;

/// `part` (0 to 1) of the second colour over the first.
QColor blend(const QColor& below, const QColor& above, float part);
bool isDark(const QColor& background);
/// Ratio of luminances, 1 (none) to 21 (black on white), as WCAG 2 defines it.
double contrastOf(const QColor& a, const QColor& b);
/// The colour itself, or the nearest lighter or darker one that stands out of this background.
QColor readable(const QColor& colour, const QColor& background, double contrast);
/// For curves and bars.
QColor readableCurve(const QColor& colour, const QColor& background);
/// The greys of a cell, and the black of its text, are made for light desktops. On a dark one light greys
/// become as dark, and black becomes white.
QColor cellColour(const QPalette& palette, const QColor& colour);

}  // namespace tarnlog
