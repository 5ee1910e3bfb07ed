#pragma once

#include <QPalette>

#include "platform/controls/Readable.h"

/// Colours of the live display as they can be read on this desktop. They are chosen anew at each change of
/// the palette; the display keeps what it was given.
namespace tarnlog {

inline constexpr double kTextContrast = 3.5;

/// The greys of a cell, and the black of its text, are made for light desktops. On a dark one light greys
/// become as dark, and black becomes white.
QColor cellColour(const QPalette& palette, const QColor& colour);

}  // namespace tarnlog
