#pragma once

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

namespace tarnlog::test {

/// The lines of a text file behind its header, with "|" for TAB.
inline std::vector<std::string> rowsOf(const std::string& file, std::size_t headerLines = 3) {
  std::vector<std::string> lines;
  std::istringstream text(file);
  for (std::string line; std::getline(text, line);) {
    line.pop_back();
    std::replace(line.begin(), line.end(), '\t', '|');
    lines.push_back(line);
  }
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(headerLines));
  return lines;
}

}  // namespace tarnlog::test
