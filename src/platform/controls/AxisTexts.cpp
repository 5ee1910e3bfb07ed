#include "platform/controls/AxisTexts.h"

#include <algorithm>
#include <cmath>

namespace tarnlog {
namespace {

constexpr int kMostDecimals = 4;     ///< more are counted, not read
constexpr double kMostInFull = 1e7;  ///< so are more digits

template <class Text>
QStringList textsOf(const AxisTicks& ticks, Text text) {
  QStringList texts;
  for (int i = 0; i < ticks.count; ++i) texts.append(text(ticks.at(i)));
  return texts;
}

double largest(const AxisTicks& ticks) {
  return std::max(std::abs(ticks.first), std::abs(ticks.at(ticks.count - 1)));
}

bool usable(const QStringList& texts, const QFontMetrics& metrics, int room) {
  for (qsizetype i = 0; i < texts.size(); ++i) {
    if (numberWidth(texts[i], metrics) > room) return false;
    if (i > 0 && texts[i] == texts[i - 1]) return false;
  }
  return true;
}

/// 2e5 rather than 2e+05.
QString withExponent(double value, int digits, const QLocale& locale) {
  if (value == 0) return locale.toString(0);
  QString text = locale.toString(value, 'e', digits - 1);
  const QString sign = locale.exponential();
  const qsizetype at = text.lastIndexOf(sign) + sign.size();
  if (text.mid(at).startsWith(locale.positiveSign())) text.remove(at, locale.positiveSign().size());
  const qsizetype digit =
      text.mid(at).startsWith(locale.negativeSign()) ? at + locale.negativeSign().size() : at;
  if (text.size() > digit + 1 && text.mid(digit).startsWith(locale.zeroDigit()))
    text.remove(digit, locale.zeroDigit().size());
  return text;
}

/// The first mark as exactly as there is room, and how far the others are from it.
QStringList distances(const AxisTicks& ticks, const QLocale& locale, const QFontMetrics& metrics, int room) {
  const QString plus = locale.positiveSign();
  QStringList texts = axisTexts({0, ticks.step, ticks.count, ticks.decimals}, locale, metrics,
                                room - numberWidth(plus, metrics));
  for (QString& text : texts) text.prepend(plus);
  for (int digits = 15; digits > 0; --digits) {
    texts[0] = withExponent(ticks.first, digits, locale);
    if (numberWidth(texts[0], metrics) <= room) break;
  }
  return texts;
}

}  // namespace

int numberWidth(const QString& text, const QFontMetrics& metrics) {
  int width = 0;
  for (const QChar character : text) width += metrics.horizontalAdvance(character);
  return width;
}

QStringList axisTexts(const AxisTicks& ticks, const QLocale& locale, const QFontMetrics& metrics, int room) {
  if (ticks.count < 1) return {};
  QLocale plain = locale;
  plain.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
  const double steps = std::max(largest(ticks) / ticks.step, 1.0);
  const int digits = std::clamp(static_cast<int>(std::log10(steps) + 1e-9) + 1, 1, 15);
  const bool readable = ticks.decimals <= kMostDecimals && largest(ticks) < kMostInFull;
  const auto inFull = [&](const QLocale& in) {
    return textsOf(ticks, [&](double value) { return in.toString(value, 'f', ticks.decimals); });
  };
  QStringList texts;
  for (const QLocale& in : {locale, plain})
    if (readable && usable(texts = inFull(in), metrics, room)) return texts;
  texts = textsOf(ticks, [&](double value) { return withExponent(value, digits, plain); });
  if (usable(texts, metrics, room)) return texts;
  if (usable(texts = inFull(plain), metrics, room)) return texts;
  return ticks.first == 0 ? texts : distances(ticks, locale, metrics, room);
}

AxisTicks ticksAlong(const AxisRange& range, const QLocale& locale, const QFontMetrics& metrics, int length) {
  const int line = std::max(metrics.height(), 1);
  int atMost = std::clamp(length / (line * 5), 3, 11);
  AxisTicks ticks = ticksFor(range, atMost);
  for (; atMost > 2; ticks = ticksFor(range, --atMost)) {
    const int room = static_cast<int>(ticks.step / range.span() * length) - line;
    if (usable(axisTexts(ticks, locale, metrics, room), metrics, room)) break;
  }
  return ticks;
}

}  // namespace tarnlog
