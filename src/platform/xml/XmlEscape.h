#pragma once

#include <cstddef>
#include <string_view>

namespace tarnlog {

/// The longest form that one byte of a text takes when escaped (`&quot;`).
inline constexpr std::size_t kLongestXmlEscape = 6;

/// Writes a UTF-8 text escaped for element content; `out` has room for kLongestXmlEscape bytes per byte of
/// `text`. CR becomes a reference, as readers turn it into LF otherwise; other control characters that XML
/// forbids are dropped; what is not UTF-8, or a character that XML forbids, becomes U+FFFD. Returns the end.
char* writeXmlText(char* out, std::string_view text);

/// The same for an attribute value between double quotes: quotes, TAB and LF are references too.
char* writeXmlAttributeValue(char* out, std::string_view value);

/// A byte that `writeXmlAttributeValue` may not copy as it is. Without jumps, for vector instructions.
inline bool mayNeedXmlEscape(char c) {
  // As signed numbers, bytes of multibyte characters are below the control characters.
  return ((static_cast<signed char>(c) < ' ') | (c == '"') | (c == '&') | (c == '<') | (c == '>')) != 0;
}

}  // namespace tarnlog
