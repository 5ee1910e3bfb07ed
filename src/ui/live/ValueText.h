#pragma once

#include <QLocale>
#include <QString>

#include "platform/screen/Controls.h"

namespace tarnlog {

/// A plotted value as the value list shows it: its label when it has one, else the number with its decimals,
/// and the unit. A dash for no number.
QString valueText(double value, const ValueDescription& description, const QLocale& locale);
/// As record files have it: 15 digits and the user's decimal separator; empty for no number.
QString cellText(double value, const QLocale& locale);

}  // namespace tarnlog
