#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tarnlog {

/// Takes what comes before the separator off the text, and the separator; the whole text without one.
inline std::string_view takeUntil(std::string_view& text, char separator) {
  const std::size_t at = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, at);
  text.remove_prefix(std::min(at + 1, text.size()));
  return taken;
}

}  // namespace tarnlog
