#pragma once

#include <QSize>
#include <QString>

#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// Writes what is seen, with title, time axis and legend, on white: as lines into a file that ends with
/// ".svg", as pixels into one that ends with ".png". `size` in pixels; it gets
/// higher where the graphs need that for their names and curves to be read. Needs no window, only the
/// toolkit's application. Raises a TarnError with the path when the file cannot be written, or ends
/// otherwise; what was there before stays then.
void writePicture(const ReviewScene& scene, const QString& path, QSize size);

}  // namespace tarnlog
