#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// Which rows of a list are looked for: every word that was typed occurs in the row's name; case and accents
/// do not count.
class RowFilter {
 public:
  void setText(std::string_view text);
  bool empty() const { return words_.empty(); }
  bool matches(std::string_view name) const;

 private:
  std::vector<std::string> words_;  ///< folded
};

}  // namespace tarnlog
