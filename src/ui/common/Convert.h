#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <string>
#include <string_view>

#include "platform/screen/Controls.h"

/// Between what the recorder says and what the toolkit takes.
namespace tarnlog {

/// From 0x00BBGGRR; the system's button-face colour is the palette's.
QColor toQColor(Colour colour, const QPalette& palette);
/// To 0x00BBGGRR.
Colour fromQColor(const QColor& colour);

inline QString toQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string fromQString(const QString& text) { return text.toStdString(); }

/// Whole device-independent pixels, to the nearest.
int toPixels(Twips twips);
inline Twips toTwips(int pixels) { return static_cast<Twips>(pixels * kTwipsPerPixel); }

}  // namespace tarnlog
