#include "apps/common/NearestName.h"

#include <algorithm>
#include <utility>

#include "catalogue/FoldedText.h"
#include "platform/text/Told.h"

namespace tarnlog {

namespace {

constexpr std::size_t kMostNear = 5;

/// Of `part` and the text, or that piece of the text which is nearest to it.
std::size_t changes(std::string_view text, std::string_view part, bool piece) {
  std::vector<std::size_t> row(text.size() + 1);
  for (std::size_t j = 0; j <= text.size(); ++j) row[j] = piece ? 0 : j;
  for (std::size_t i = 1; i <= part.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= text.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (part[i - 1] == text[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return piece ? *std::min_element(row.begin(), row.end()) : row.back();
}

/// How many changes still make a word of this length near.
std::size_t nearTo(std::size_t length) {
  if (length < 4) return 0;
  return std::max<std::size_t>(1, length / 6);
}

}  // namespace

std::size_t distance(std::string_view a, std::string_view b) { return changes(b, a, false); }

std::string nearestName(const std::vector<std::string>& names, std::string_view given) {
  const auto far = [&](const std::string& name) { return distance(name, given); };
  const auto nearest = std::min_element(names.begin(), names.end(),
                                        [&](const auto& a, const auto& b) { return far(a) < far(b); });
  return nearest == names.end() || far(*nearest) > 1 + nearest->size() / 3 ? std::string() : *nearest;
}

std::vector<std::string> nearNames(const std::vector<std::string>& names, std::string_view given) {
  const std::string wanted = folded(given);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    const std::size_t far = changes(folded(name), wanted, true);
    if (!wanted.empty() && far <= nearTo(wanted.size())) near.emplace_back(far, name);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> first;
  for (auto& [far, name] : near)
    if (first.size() < kMostNear && std::find(first.begin(), first.end(), name) == first.end())
      first.push_back(std::move(name));
  return first;
}

std::string nearNamesText(const std::vector<std::string>& near) {
  std::string text;
  for (const std::string& name : near) text += "\n  " + name;
  return text.empty() ? text : Told::tr("; near are:") + text;
}

}  // namespace tarnlog
