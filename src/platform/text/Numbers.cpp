#include "platform/text/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace tarnlog {

namespace {

constexpr int kSignificantDigits = 15;
constexpr int kLargestPlainExponent = 14;
constexpr int kSmallestPlainExponent = -5;

/// A positive finite number as its digits (no trailing zeros) and the exponent of the first one.
struct Decimal {
  char digits[kSignificantDigits + 1];
  int count = 0;
  int exponent = 0;
};

Decimal decimalOf(double value) {
  char text[32];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, kSignificantDigits - 1)
          .ptr;
  const char* const e = std::find(text, end, 'e');
  Decimal decimal;
  for (const char* c = text; c != e; ++c)
    if (*c != '.') decimal.digits[decimal.count++] = *c;
  while (decimal.count > 1 && decimal.digits[decimal.count - 1] == '0') --decimal.count;
  std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, decimal.exponent);
  return decimal;
}

void appendPlain(std::string& out, const Decimal& decimal, char separator) {
  const int whole = decimal.exponent + 1;
  if (whole <= 0) {
    out.append("0").push_back(separator);
    out.append(static_cast<std::size_t>(-whole), '0');
    out.append(decimal.digits, static_cast<std::size_t>(decimal.count));
  } else if (whole >= decimal.count) {
    out.append(decimal.digits, static_cast<std::size_t>(decimal.count));
    out.append(static_cast<std::size_t>(whole - decimal.count), '0');
  } else {
    out.append(decimal.digits, static_cast<std::size_t>(whole)).push_back(separator);
    out.append(decimal.digits + whole, static_cast<std::size_t>(decimal.count - whole));
  }
}

void appendWithExponent(std::string& out, const Decimal& decimal, char separator) {
  out.push_back(decimal.digits[0]);
  if (decimal.count > 1) {
    out.push_back(separator);
    out.append(decimal.digits + 1, static_cast<std::size_t>(decimal.count - 1));
  }
  out.append(decimal.exponent < 0 ? "E-" : "E+");
  const int exponent = std::abs(decimal.exponent);
  if (exponent < 10) out.push_back('0');
  appendNumber(out, exponent);
}

/// Numbers of up to nine digits before and four after the separator, which most measured values are, without
/// going through a general conversion. False when the number is not one of them.
bool appendShortDecimal(std::string& out, double value, char separator) {
  constexpr double scale = 10000;
  if (value >= 1e9) return false;
  const double scaled = value * scale;
  const double nearest = std::nearbyint(scaled);
  // Exactly the double that the short decimal stands for, so both conversions give the same digits.
  if (nearest / scale != value) return false;
  auto digits = static_cast<std::int64_t>(nearest);
  char text[24];
  char* const end = text + sizeof text;
  char* c = end;
  std::int64_t fraction = digits % 10000;
  if (fraction != 0) {
    int places = 4;
    while (fraction % 10 == 0) {
      fraction /= 10;
      --places;
    }
    for (; places > 0; --places) {
      *--c = static_cast<char>('0' + fraction % 10);
      fraction /= 10;
    }
    *--c = separator;
  }
  digits /= 10000;
  do {
    *--c = static_cast<char>('0' + digits % 10);
    digits /= 10;
  } while (digits != 0);
  out.append(c, static_cast<std::size_t>(end - c));
  return true;
}

void appendScaled(std::string& out, std::int64_t units, int places, char separator) {
  if (units < 0) {
    out.push_back('-');
    units = -units;
  }
  while (places > 0 && units % 10 == 0) {
    units /= 10;
    --places;
  }
  char text[24];
  char* const end = text + sizeof text;
  char* c = end;
  for (int i = 0; i < places; ++i) {
    *--c = static_cast<char>('0' + units % 10);
    units /= 10;
  }
  if (places > 0) *--c = separator;
  do {
    *--c = static_cast<char>('0' + units % 10);
    units /= 10;
  } while (units != 0);
  out.append(c, static_cast<std::size_t>(end - c));
}

std::string_view withoutLeadingBlanks(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

/// Whether a number that does not fit a double is too small rather than too large.
bool isTiny(std::string_view number) {
  const std::size_t exponent = number.find_first_of("eE");
  if (exponent != std::string_view::npos) return number.substr(exponent + 1, 1) == "-";
  return number.find_first_of("123456789") > number.find('.');
}

/// Parses the number that the text starts with; `rest` is what follows it. False when there is none. A number
/// too large or too small for a double is the nearest that there is.
bool parseNumber(std::string_view text, double& value, std::string_view& rest) {
  text = withoutLeadingBlanks(text);
  bool negative = false;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty() || (text.front() != '.' && (text.front() < '0' || text.front() > '9'))) return false;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::invalid_argument) return false;
  rest = text.substr(static_cast<std::size_t>(end - text.data()));
  if (error == std::errc::result_out_of_range)
    value = isTiny(text.substr(0, text.size() - rest.size())) ? 0 : std::numeric_limits<double>::max();
  if (negative) value = -value;
  return true;
}

}  // namespace

std::int64_t divideHalfEven(std::int64_t value, std::int64_t divisor) {
  std::int64_t quotient = value / divisor;
  std::int64_t rest = value % divisor;
  if (rest < 0) {
    rest += divisor;
    --quotient;
  }
  if (2 * rest > divisor || (2 * rest == divisor && quotient % 2 != 0)) ++quotient;
  return quotient;
}

void appendNumber(std::string& out, double value, char decimalSeparator) {
  if (!std::isfinite(value)) {
    out.append(std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf");
    return;
  }
  if (value == 0) {
    out.push_back('0');
    return;
  }
  if (value < 0) out.push_back('-');
  value = std::fabs(value);
  if (appendShortDecimal(out, value, decimalSeparator)) return;
  const Decimal decimal = decimalOf(value);
  if (decimal.exponent > kLargestPlainExponent || decimal.exponent < kSmallestPlainExponent)
    appendWithExponent(out, decimal, decimalSeparator);
  else
    appendPlain(out, decimal, decimalSeparator);
}

void appendNumber(std::string& out, std::int32_t value) {
  char text[16];
  out.append(text, static_cast<std::size_t>(std::to_chars(text, text + sizeof text, value).ptr - text));
}

std::string numberText(double value, const UserLocale& locale) {
  std::string text;
  appendNumber(text, value, locale.decimalSeparator);
  return text;
}

void appendFixed(std::string& out, double value, int decimals, char decimalSeparator) {
  // The largest double has 309 digits before the point.
  std::array<char, 309 + 15 + 3> buffer;
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                        std::chars_format::fixed, std::clamp(decimals, 0, 15))
                              .ptr;
  std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string_view::npos) text.remove_prefix(1);
  const std::size_t start = out.size();
  out += text;
  std::replace(out.begin() + static_cast<std::ptrdiff_t>(start), out.end(), '.', decimalSeparator);
}

std::string exactNumberText(double value) {
  constexpr double kLongestPlain = 1e21;
  constexpr double kShortestPlain = 1e-7;
  const double size = std::fabs(value);
  const bool plain = value == 0 || (size < kLongestPlain && size >= kShortestPlain);
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value == 0 ? 0.0 : value,
                                 plain ? std::chars_format::fixed : std::chars_format::scientific)
                       .ptr;
  return {text, end};
}

double leadingNumber(std::string_view text) {
  double value = 0;
  std::string_view rest;
  return parseNumber(text, value, rest) ? value : 0;
}

std::int32_t leadingInteger(std::string_view text) { return roundHalfEven(leadingNumber(text)); }

std::optional<std::int32_t> wholeInteger(std::string_view text) {
  double value = 0;
  std::string_view rest;
  if (!parseNumber(text, value, rest) || !withoutLeadingBlanks(rest).empty()) return std::nullopt;
  const double nearest = std::nearbyint(value);
  if (nearest < std::numeric_limits<std::int32_t>::min() ||
      nearest > std::numeric_limits<std::int32_t>::max())
    return std::nullopt;
  return static_cast<std::int32_t>(nearest);
}

std::int32_t roundHalfEven(double value) {
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(value),
                                                      std::numeric_limits<std::int32_t>::min(),
                                                      std::numeric_limits<std::int32_t>::max()));
}

void appendSeconds2(std::string& out, std::int64_t milliseconds, char decimalSeparator) {
  appendScaled(out, divideHalfEven(milliseconds, 10), 2, decimalSeparator);
}

void appendSeconds1(std::string& out, std::int64_t milliseconds, char decimalSeparator) {
  appendScaled(out, divideHalfEven(milliseconds, 100), 1, decimalSeparator);
}

}  // namespace tarnlog
