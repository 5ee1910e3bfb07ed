#pragma once

#include <QWidget>

#include "platform/controls/CWNumEdit.h"

/// The numeric inputs of the recording parameters. What is typed counts at once, so that a configuration
/// saved by a shortcut holds it.
namespace tarnlog {

/// Whole numbers within these bounds.
CWNumEdit* createSecondsInput(const char* name, double lowest, double highest);

/// The same for times before a moment: they are negative, and what is typed without a sign is meant so.
CWNumEdit* createSecondsBeforeInput(const char* name, double longest);

/// Any number; steps stay between 0 and 100.
CWNumEdit* createLevelInput(const char* name);

/// Shows a value, without a signal. A value beyond the bounds, from a file, widens them.
void showNumber(CWNumEdit& input, double value);

}  // namespace tarnlog
