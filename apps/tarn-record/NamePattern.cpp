#include "apps/tarn-record/NamePattern.h"

#include <algorithm>

#include "catalogue/FoldedText.h"

namespace tarnlog::record {

namespace {

bool continuesCharacter(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

/// Behind the UTF-8 character that begins here.
std::size_t behindCharacter(std::string_view text, std::size_t at) {
  ++at;
  while (continuesCharacter(text, at)) ++at;
  return at;
}

/// Goes back to the last * only, so the time grows with the product of both lengths at most.
bool matchesFolded(std::string_view pattern, std::string_view name) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t taken = 0;  // where the last * ends for now
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      taken = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;
      n = behindCharacter(name, n);
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = taken = behindCharacter(name, taken);
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace

NamePattern::NamePattern(std::string_view pattern) : pattern_(folded(pattern)) {}

bool NamePattern::matches(std::string_view name) const { return matchesFolded(pattern_, folded(name)); }

std::string NamePattern::core() const {
  std::string longest;
  std::size_t from = 0;
  while (from < pattern_.size()) {
    const std::size_t end = std::min(pattern_.find_first_of("*?", from), pattern_.size());
    if (end - from > longest.size()) longest = pattern_.substr(from, end - from);
    from = end + 1;
  }
  return longest;
}

}  // namespace tarnlog::record
