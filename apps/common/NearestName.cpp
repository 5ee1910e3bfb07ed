#include "apps/common/NearestName.h"

#include <algorithm>

namespace tarnlog {

std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

std::string nearestName(const std::vector<std::string>& names, std::string_view given) {
  const auto far = [&](const std::string& name) { return distance(name, given); };
  const auto nearest = std::min_element(names.begin(), names.end(),
                                        [&](const auto& a, const auto& b) { return far(a) < far(b); });
  return nearest == names.end() || far(*nearest) > 1 + nearest->size() / 3 ? std::string() : *nearest;
}

}  // namespace tarnlog
