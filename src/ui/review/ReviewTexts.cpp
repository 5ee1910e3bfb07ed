#include "ui/review/ReviewTexts.h"

#include <algorithm>
#include <cmath>

#include "platform/plotting/TimeGrid.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr int kDigits = 4;         ///< of the range that are told apart
constexpr int kMostDecimals = 12;  ///< a smaller range is not worth them
constexpr double kLargest = 1e15;

void cutZeros(std::string& text, char separator) {
  if (text.find(separator) == std::string::npos) return;
  while (text.back() == '0') text.pop_back();
  if (text.back() == separator) text.pop_back();
}

int decimalsFor(double value, double range) {
  const double spread = range > 0 && std::isfinite(range) ? range : std::fabs(value);
  if (!(spread > 0)) return 0;
  return std::clamp(kDigits - 1 - static_cast<int>(std::floor(std::log10(spread))), 0, kMostDecimals);
}

}  // namespace

std::string figureText(double value, double range, const UserLocale& locale) {
  if (std::isnan(value)) return {};
  if (!std::isfinite(value) || std::fabs(value) >= kLargest) return numberText(value, locale);
  const int decimals = decimalsFor(value, range);
  if (decimals == kMostDecimals) return numberText(value, locale);
  std::string text;
  appendFixed(text, value, decimals, locale.decimalSeparator);
  cutZeros(text, locale.decimalSeparator);
  return text;
}

std::string secondsText(double seconds, const UserLocale& locale) {
  if (!std::isfinite(seconds) || std::fabs(seconds) > kLargest) return {};
  const double milliseconds = std::round(std::fabs(seconds) * 1000);
  const char* const sign = seconds < 0 && milliseconds != 0 ? "-" : "";
  return sign + durationText(milliseconds, locale.decimalSeparator);
}

}  // namespace tarnlog
