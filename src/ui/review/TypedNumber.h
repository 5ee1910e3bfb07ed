#pragma once

#include <QString>
#include <optional>

namespace tarnlog {

/// What somebody typed, with their decimal separator or a point; none while it is no number.
inline std::optional<double> typedNumber(const QString& text) {
  bool isNumber = false;
  const double number = QString(text).trimmed().replace(',', '.').toDouble(&isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}

}  // namespace tarnlog
