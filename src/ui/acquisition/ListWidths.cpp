#include "ui/acquisition/ListWidths.h"

#include <algorithm>
#include <cmath>

namespace tarnlog {

ListWidths ListWidths::byParts(Twips list, int extremes) {
  const Twips part = std::floor(list / static_cast<Twips>(7 + 2 * extremes));
  return {part * 4 - 6, part * 2, part};
}

ListWidths ListWidths::near(Twips longestName, Twips usualValue) const {
  return {std::min(name, longestName), std::min(value, usualValue), unit};
}

}  // namespace tarnlog
