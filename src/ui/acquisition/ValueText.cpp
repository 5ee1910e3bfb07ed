#include "ui/acquisition/ValueText.h"

#include <algorithm>
#include <cmath>

#include "platform/text/Numbers.h"
#include "ui/common/Convert.h"

namespace tarnlog {
namespace {

constexpr int kDigits = 7;
constexpr double kMostInFull = 1e15;

const std::string* labelOf(double value, const ValueDescription& description) {
  const auto label = std::find_if(description.labels.begin(), description.labels.end(),
                                  [&](const auto& entry) { return entry.first == value; });
  return label == description.labels.end() ? nullptr : &label->second;
}

double rounded(double value) {
  if (value == std::floor(value) && std::abs(value) < kMostInFull) return value;
  return QString::number(value, 'g', kDigits).toDouble();
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
  QString text = std::isinf(value) ? QString(value < 0 ? QStringLiteral("-∞") : QStringLiteral("∞"))
                                   : cellText(rounded(value), locale);
  if (!description.unit.empty()) text += QLatin1Char(' ') + toQString(description.unit);
  return text;
}

}  // namespace tarnlog
