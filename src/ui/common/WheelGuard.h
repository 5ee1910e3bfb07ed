#pragma once

#include <QWidget>

namespace tarnlog {

/// Turning the wheel changes this input only while it has the focus; otherwise the page scrolls, and nothing
/// changes in passing.
void changeByWheelOnlyWithFocus(QWidget& input);

/// The wheel never changes this one.
void changeNeverByWheel(QWidget& input);

}  // namespace tarnlog
