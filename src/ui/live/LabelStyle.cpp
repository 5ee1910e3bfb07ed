#include "ui/live/LabelStyle.h"

#include <QFontMetrics>

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr int kLeastFont = 6;
constexpr int kTwipsPerPoint = 20;

}  // namespace

QFont fittedFont(const QFont& wanted, int lineHeight) {
  QFont font = wanted;
  int size = wanted.pixelSize() > 0 ? wanted.pixelSize() : lineHeight;
  font.setPixelSize(size);
  while (size > kLeastFont && QFontMetrics(font).height() > lineHeight) font.setPixelSize(--size);
  return font;
}

QFont screenFont(const QFont& desktop, std::string_view family, int points, bool bold, bool italic) {
  QFont font = family == "MS Sans Serif" ? desktop : QFont(toQString(family));
  font.setPixelSize(std::max(toPixels(static_cast<Twips>(points * kTwipsPerPoint)), 1));
  font.setBold(bold);
  font.setItalic(italic);
  return font;
}

}  // namespace tarnlog
