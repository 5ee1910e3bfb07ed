#pragma once

#include <QFontMetrics>
#include <QLocale>
#include <QStringList>

#include "platform/plotting/AxisTicks.h"

namespace tarnlog {

/// The numbers at the marks of an axis, each within `room` pixels if any way to write them is, and different
/// from one another: in full, without group separators, with an exponent, or as distances from the first.
QStringList axisTexts(const AxisTicks& ticks, const QLocale& locale, const QFontMetrics& metrics, int room);
/// Of a number: the sum of its characters, which is found without laying out the text.
int numberWidth(const QString& text, const QFontMetrics& metrics);
/// As many marks as stand side by side over `length` pixels with their numbers, at most one every 5 lines.
AxisTicks ticksAlong(const AxisRange& range, const QLocale& locale, const QFontMetrics& metrics, int length);

}  // namespace tarnlog
