#pragma once

#include "platform/screen/Controls.h"

namespace tarnlog {

/// How wide the columns of the value list are. Extremes are as wide as values. What comes last takes the rest
/// of the list, unless values are to be near their names.
struct ListWidths {
  Twips name;
  Twips value;
  Twips unit;

  /// 4, 2 and 1 parts of the list, and 2 for each column of extremes.
  static ListWidths byParts(Twips list, int extremes);
  /// No wider than the longest name and the usual value are.
  ListWidths near(Twips longestName, Twips usualValue) const;
};

}  // namespace tarnlog
