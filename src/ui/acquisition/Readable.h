#pragma once

#include <QPalette>

#include "platform/controls/Readable.h"

/// Colours of the configuration as they can be read on this desktop. They are chosen anew at each change of
/// the palette; the configuration keeps what the user chose.
namespace tarnlog {

inline constexpr double kTextContrast = 3.5;

/// A light grey made for black text becomes an equally dark one on a dark desktop.
QColor backgroundOn(const QPalette& palette, const QColor& colour);

}  // namespace tarnlog
