#pragma once

#include <cstdint>

namespace tarnlog {

/// When a value crosses a level: the rule of the triggers, and of looking at a record.
struct LevelCrossing {
  std::int32_t edge = 0;  ///< 1 rising, -1 falling, anything else never crosses
  double level = 0;

  bool crosses(double before, double now) const {
    return (edge == 1 && now >= level && before < level) || (edge == -1 && now <= level && before > level);
  }
};

}  // namespace tarnlog
