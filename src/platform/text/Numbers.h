#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/UserLocale.h"

/// The one parser and the one formatter for numbers. None of them looks at the global locale.
namespace tarnlog {

/// Up to 15 significant digits, no trailing zeros, no exponent from 1e-5 up to below 1e15 (1E+15, 1E-06
/// outside), the user's decimal separator. Never "-0". NaN and infinities give "nan", "inf", "-inf": callers
/// show the host's text.
void appendNumber(std::string& out, double value, char decimalSeparator);
void appendNumber(std::string& out, std::int32_t value);
std::string numberText(double value, const UserLocale& locale);

/// With exactly so many decimals, kept within 0 to 15, halves of the exact binary value to even; never
/// "-0.0". NaN and infinities as `appendNumber`.
void appendFixed(std::string& out, double value, int decimals, char decimalSeparator);

/// The shortest text with "." that reads back as the same double; an exponent only from 1e21 on and below
/// 1e-7.
std::string exactNumberText(double value);

/// The leading decimal number of a text with "." as decimal point (blanks before it are skipped, an exponent
/// is read); 0 when the text does not start with one.
double leadingNumber(std::string_view text);

/// `leadingNumber` rounded to the nearest 32-bit integer, halves to even; clamped to the range of the type.
std::int32_t leadingInteger(std::string_view text);

/// The whole text as a number, rounded to an integer with halves to even; none when it is not a number or
/// does not fit.
std::optional<std::int32_t> wholeInteger(std::string_view text);

/// Nearest integer, halves to even; clamped to 32 bits, 0 for NaN.
std::int32_t roundHalfEven(double value);

/// Nearest quotient, halves to even; for a divisor above 0.
std::int64_t divideHalfEven(std::int64_t value, std::int64_t divisor);

/// A difference of milliseconds as seconds rounded to 2 decimals (halves to even) in the shortest form: -20
/// is "-0.02", 5 is "0", 15 is "0.02".
void appendSeconds2(std::string& out, std::int64_t milliseconds, char decimalSeparator);
/// The same rounded to 1 decimal.
void appendSeconds1(std::string& out, std::int64_t milliseconds, char decimalSeparator);

}  // namespace tarnlog
