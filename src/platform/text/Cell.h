#pragma once

#include <algorithm>
#include <string>

namespace tarnlog {

/// Nothing in a cell of a table with tabs may end the cell or the line.
constexpr bool breaksCell(char c) { return c == '\t' || c == '\r' || c == '\n'; }

/// The text with blanks in place of what breaks a cell.
inline std::string cleanCell(std::string text) {
  std::replace_if(text.begin(), text.end(), breaksCell, ' ');
  return text;
}

}  // namespace tarnlog
