#include "ui/live/ValueText.h"

#include <algorithm>
#include <cmath>

#include "platform/text/Numbers.h"
#include "ui/common/Convert.h"

namespace tarnlog {
namespace {

const std::string* labelOf(double value, const ValueDescription& description) {
  const auto label = std::find_if(description.labels.begin(), description.labels.end(),
                                  [&](const auto& entry) { return entry.first == value; });
  return label == description.labels.end() ? nullptr : &label->second;
}

/// With exactly so many decimals; never "-0.0".
QString fixedText(double value, int decimals, const QLocale& locale) {
  QString text = QString::number(value, 'f', decimals);
  if (text.startsWith(QLatin1Char('-')) && text.toDouble() == 0) text.remove(0, 1);
  return text.replace(QLatin1Char('.'), locale.decimalPoint());
}

QString numberText(double value, const ValueDescription& description, const QLocale& locale) {
  if (std::isinf(value)) return value < 0 ? QStringLiteral("-∞") : QStringLiteral("∞");
  return description.decimals ? fixedText(value, *description.decimals, locale) : cellText(value, locale);
}

}  // namespace

QString cellText(double value, const QLocale& locale) {
  if (!std::isfinite(value)) return {};
  std::string text;
  appendNumber(text, value, '.');
  return toQString(text).replace(QLatin1Char('.'), locale.decimalPoint());
}

QString valueText(double value, const ValueDescription& description, const QLocale& locale) {
  if (const std::string* const label = labelOf(value, description)) return toQString(*label);
  if (std::isnan(value)) return QStringLiteral("–");
  QString text = numberText(value, description, locale);
  if (!description.unit.empty()) text += QLatin1Char(' ') + toQString(description.unit);
  return text;
}

}  // namespace tarnlog
