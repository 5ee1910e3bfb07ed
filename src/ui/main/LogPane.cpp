#include "ui/main/LogPane.h"

#include <algorithm>

namespace tarnlog {

namespace {

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

std::size_t charactersIn(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), beginsCharacter));
}

/// The byte at which this character (0-based) begins.
std::size_t byteOf(std::string_view utf8, std::size_t character) {
  std::size_t byte = 0;
  for (std::size_t begun = 0; byte < utf8.size(); ++byte)
    if (beginsCharacter(utf8[byte]) && begun++ == character) break;
  return byte;
}

}  // namespace

bool LogPane::add(std::string_view line) {
  const bool cut = characters_ > kMostCharacters;
  if (cut) {
    text_.erase(0, byteOf(text_, kDroppedCharacters));
    characters_ -= kDroppedCharacters;
  }
  text_.append("\r\n").append(line);
  characters_ += 2 + charactersIn(line);
  return cut;
}

void LogPane::clear() {
  text_.clear();
  characters_ = 0;
}

}  // namespace tarnlog
