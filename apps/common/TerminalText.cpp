#include "apps/common/TerminalText.h"

#include <fmt/format.h>

#include <cstddef>
#include <iterator>

namespace tarnlog {

namespace {

unsigned byteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

/// Bytes of the UTF-8 character that begins here; 0 when none does.
std::size_t characterLength(std::string_view text) {
  const unsigned first = byteAt(text, 0);
  const std::size_t length = first < 0x80U                      ? 1
                             : first >= 0xC2U && first <= 0xDFU ? 2
                             : first >= 0xE0U && first <= 0xEFU ? 3
                             : first >= 0xF0U && first <= 0xF4U ? 4
                                                                : 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byteAt(text, i) & 0xC0U) != 0x80U) return 0;
  return length;
}

/// Whether a terminal acts on it: C0, DEL, C1.
bool isControl(std::string_view character) {
  const unsigned first = byteAt(character, 0);
  if (character.size() == 1) return first < 0x20U || first == 0x7FU;
  return first == 0xC2U && byteAt(character, 1) < 0xA0U;
}

std::string escaped(std::string_view text, std::string_view kept) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    const std::string_view character = text.substr(0, length == 0 ? 1 : length);
    if (length == 0)
      fmt::format_to(std::back_inserter(out), "\\x{:02X}", byteAt(character, 0));
    else if (isControl(character) && kept.find(character) == std::string_view::npos)
      fmt::format_to(std::back_inserter(out), "\\u{:04X}", byteAt(character, length - 1));
    else
      out += character;
    text.remove_prefix(character.size());
  }
  return out;
}

}  // namespace

std::string printableLine(std::string_view text) { return escaped(text, {}); }

std::string printableText(std::string_view text) { return escaped(text, "\n\t"); }

}  // namespace tarnlog
