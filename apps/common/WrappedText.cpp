#include "apps/common/WrappedText.h"

#include <algorithm>

#include "platform/text/TakeUntil.h"

namespace tarnlog {

namespace {

void appendWrapped(std::string& out, std::string_view line, std::size_t width, const std::string& lineEnd) {
  if (line.starts_with(' ')) {
    out += line;
    return;
  }
  std::size_t used = 0;
  while (!line.empty()) {
    const std::string_view word = takeUntil(line, ' ');
    const std::size_t needed = charactersOf(word);
    if (used > 0 && used + 1 + needed > width) {
      out += lineEnd;
      used = 0;
    }
    if (used > 0) out += ' ';
    used += needed + (used > 0 ? 1 : 0);
    out += word;
  }
}

}  // namespace

std::size_t charactersOf(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string wrappedText(std::string_view text, std::size_t width, std::size_t indent) {
  const std::string lineEnd = "\n" + std::string(indent, ' ');
  std::string out;
  while (!text.empty()) {
    appendWrapped(out, takeUntil(text, '\n'), width, lineEnd);
    if (!text.empty()) out += lineEnd;
  }
  return out;
}

}  // namespace tarnlog
