#include "samples/JsonText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

bool isPlain(char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; }

/// The first character, or the first byte where that begins none.
std::string_view firstCharacter(std::string_view text) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t bytes = 1; bytes <= std::min(kLongest, text.size()); ++bytes)
    if (isUtf8(text.substr(0, bytes))) return text.substr(0, bytes);
  return {};
}

void appendControl(std::string& out, char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out += "\\u00";
  out += kDigits[static_cast<unsigned char>(c) >> 4U];
  out += kDigits[static_cast<unsigned char>(c) & 0xFU];
}

/// What is not plain. Tells how many bytes of the text that were.
std::size_t appendEscaped(std::string& out, std::string_view text) {
  const char c = text.front();
  if (c == '"' || c == '\\') {
    out += '\\';
    out += c;
  } else if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') {
    appendControl(out, c);
  } else {
    const std::string_view character = firstCharacter(text);
    out += character.empty() ? std::string_view("\xEF\xBF\xBD") : character;
    return std::max(character.size(), std::size_t{1});
  }
  return 1;
}

template <class Number>
void appendDigits(std::string& out, Number number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  out.append(digits.begin(), end);
}

}  // namespace

void appendJson(std::string& out, std::string_view text) {
  out += '"';
  while (!text.empty()) {
    const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(text, isPlain) - text.begin());
    out += text.substr(0, plain);
    text.remove_prefix(plain);
    if (!text.empty()) text.remove_prefix(appendEscaped(out, text));
  }
  out += '"';
}

void appendJson(std::string& out, std::int64_t number) { appendDigits(out, number); }

void appendJson(std::string& out, std::uint64_t number) { appendDigits(out, number); }

void appendJson(std::string& out, double number) {
  if (std::isfinite(number))
    appendDigits(out, number);
  else
    out += "null";
}

}  // namespace tarnlog
