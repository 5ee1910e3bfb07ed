#include "catalogue/RowFilter.h"

#include <algorithm>
#include <sstream>

#include "catalogue/FoldedText.h"

namespace tarnlog {

void RowFilter::setText(std::string_view text) {
  words_.clear();
  std::istringstream words(folded(text));
  for (std::string word; words >> word;) words_.push_back(word);
}

bool RowFilter::matches(std::string_view name) const {
  const std::string searched = folded(name);
  return std::ranges::all_of(
      words_, [&](const std::string& word) { return searched.find(word) != std::string::npos; });
}

}  // namespace tarnlog
