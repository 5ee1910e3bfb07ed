#pragma once

#include <cstdint>

#include "config/LevelCrossing.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// Fires when a data item's value crosses a level between two evaluations.
class LevelTrigger {
 public:
  LevelTrigger() = default;
  /// Edge 1 = rising, -1 = falling, anything else never fires. The first evaluation cannot fire: the memory
  /// starts on the far side of the level. `data` null never fires.
  LevelTrigger(const ferrox3::DataItem* data, std::int32_t edge, double level)
      : data_(data), crossing_{edge, level}, previous_(edge + level) {}

  explicit operator bool() const { return data_ != nullptr; }
  /// A value that is not a number, or cannot be read, does not fire and is not remembered: the crossing is
  /// found at the next number.
  bool evaluate();

 private:
  const ferrox3::DataItem* data_ = nullptr;
  LevelCrossing crossing_;
  double previous_ = 0;
};

}  // namespace tarnlog
