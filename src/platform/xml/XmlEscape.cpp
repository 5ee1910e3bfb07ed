#include "platform/xml/XmlEscape.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarnlog {
namespace {

enum Class : std::uint8_t { kPlain, kDropped, kReplaced, kMultibyte };

using ClassTable = std::array<std::uint8_t, 256>;

constexpr ClassTable classes(bool attribute) {
  ClassTable table{};
  for (std::size_t c = 0; c < 0x20; ++c) table[c] = kDropped;
  table['\t'] = table['\n'] = attribute ? kReplaced : kPlain;
  table['"'] = attribute ? kReplaced : kPlain;
  table['\r'] = table['&'] = table['<'] = table['>'] = kReplaced;
  for (std::size_t c = 0x80; c < 0x100; ++c) table[c] = kMultibyte;
  return table;
}

constexpr ClassTable kTextClasses = classes(false);
constexpr ClassTable kAttributeClasses = classes(true);

std::string_view replacement(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return "&#13;";
  }
}

/// The length of the UTF-8 sequence at the start of `text` when it is a character that XML allows, else 0.
std::size_t characterLength(std::string_view text) {
  const auto byte = [&](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0u;
  };
  const auto continues = [&](std::size_t at) { return (byte(at) & 0xC0u) == 0x80u; };
  const unsigned first = byte(0);
  if (first >= 0xC2 && first <= 0xDF) return continues(1) ? 2 : 0;
  if (first >= 0xE0 && first <= 0xEF) {
    if (!continues(1) || !continues(2)) return 0;
    const unsigned code = (first & 0x0Fu) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < 0x800 || surrogate || code >= 0xFFFE ? 0 : 3;
  }
  if (first >= 0xF0 && first <= 0xF4) {
    if (!continues(1) || !continues(2) || !continues(3)) return 0;
    const unsigned code = (first & 0x07u) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
    return code < 0x400 || code > 0x43FF ? 0 : 4;
  }
  return 0;
}

char* put(char* out, std::string_view text) { return std::copy(text.begin(), text.end(), out); }

char* writeEscaped(char* out, std::string_view text, const ClassTable& table) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const auto kind = table[static_cast<unsigned char>(*at)];
    if (kind == kPlain) {
      *out++ = *at++;
    } else if (kind == kReplaced) {
      out = put(out, replacement(*at++));
    } else if (kind == kDropped) {
      ++at;
    } else {
      const std::string_view rest(at, static_cast<std::size_t>(end - at));
      const std::size_t length = characterLength(rest);
      out = put(out, length == 0 ? "\xEF\xBF\xBD" : rest.substr(0, length));
      at += length == 0 ? 1 : length;
    }
  }
  return out;
}

}  // namespace

char* writeXmlText(char* out, std::string_view text) { return writeEscaped(out, text, kTextClasses); }

char* writeXmlAttributeValue(char* out, std::string_view value) {
  return writeEscaped(out, value, kAttributeClasses);
}

}  // namespace tarnlog
