#pragma once

#include <QColor>

namespace tarnlog {

/// 1 (the same) to 21 (black on white), after the relative luminance of both (WCAG 2).
double contrast(const QColor& a, const QColor& b);

/// The colour itself where it can be read on the background, else as little of the text colour mixed in as
/// makes it readable.
QColor readableOn(const QColor& background, const QColor& text, const QColor& colour);

}  // namespace tarnlog
