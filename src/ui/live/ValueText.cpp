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

/// A number with "." as the user writes it.
QString localized(const std::string& text, const QLocale& locale) {
  return toQString(text).replace(QLatin1Char('.'), locale.decimalPoint());
}

QString numberText(double value, const ValueDescription& description, const QLocale& locale) {
  if (std::isinf(value)) return value < 0 ? QStringLiteral("-∞") : QStringLiteral("∞");
  if (!description.decimals) return cellText(value, locale);
  std::string text;
  appendFixed(text, value, *description.decimals, '.');
  return localized(text, locale);
}

}  // namespace

QString cellText(double value, const QLocale& locale) {
  if (!std::isfinite(value)) return {};
  std::string text;
  appendNumber(text, value, '.');
  return localized(text, locale);
}

QString valueText(double value, const ValueDescription& description, const QLocale& locale) {
  if (const std::string* const label = labelOf(value, description)) return toQString(*label);
  if (std::isnan(value)) return QStringLiteral("–");
  QString text = numberText(value, description, locale);
  if (!description.unit.empty()) text += QLatin1Char(' ') + toQString(description.unit);
  return text;
}

}  // namespace tarnlog
