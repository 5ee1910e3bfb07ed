#include "platform/text/TextEncoding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tarnlog {

namespace {

constexpr char32_t kInvalid = 0xFFFD;

/// Codes 80 to 9F; 0 where there is no character.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

struct Decoded {
  char32_t character = kInvalid;
  std::size_t length = 1;
  bool valid = false;
};

/// The character at the start of a text that is not empty. An invalid byte counts as one character.
Decoded decodeFirst(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t first = byte(0);
  if (first < 0x80) return {first, 1, true};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return {};
  char32_t character = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {};
    character = (character << 6) | (byte(i) & 0x3FU);
  }
  const char32_t least = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
  if (character < least || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) return {};
  return {character, length, true};
}

char windows1252Code(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return '?';
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

}  // namespace

void appendUtf8(std::string& out, char32_t character) {
  const auto push = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (character < 0x80) return push(character);
  if (character < 0x800) {
    push(0xC0 | (character >> 6));
  } else if (character < 0x10000) {
    push(0xE0 | (character >> 12));
    push(0x80 | ((character >> 6) & 0x3F));
  } else {
    push(0xF0 | (character >> 18));
    push(0x80 | ((character >> 12) & 0x3F));
    push(0x80 | ((character >> 6) & 0x3F));
  }
  push(0x80 | (character & 0x3F));
}

bool isAscii(std::string_view bytes) {
  // No early exit: short texts, and the compiler turns this into a few vector instructions.
  unsigned char all = 0;
  for (const char c : bytes) all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
  return all < 0x80;
}

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const Decoded decoded = decodeFirst(bytes);
    if (!decoded.valid) return false;
    bytes.remove_prefix(decoded.length);
  }
  return true;
}

void appendWindows1252(std::string& out, std::string_view utf8) {
  if (isAscii(utf8)) {
    out.append(utf8);
    return;
  }
  while (!utf8.empty()) {
    const Decoded decoded = decodeFirst(utf8);
    out.push_back(decoded.valid ? windows1252Code(decoded.character) : '?');
    utf8.remove_prefix(decoded.length);
  }
}

std::string utf8FromWindows1252(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) {
    const auto code = static_cast<std::uint8_t>(c);
    char32_t character = code;
    if (code >= 0x80 && code <= 0x9F) {
      character = kHighControls[code - 0x80U];
      if (character == 0) character = kInvalid;
    }
    appendUtf8(out, character);
  }
  return out;
}

}  // namespace tarnlog
