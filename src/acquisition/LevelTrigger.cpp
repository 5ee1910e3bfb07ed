#include "acquisition/LevelTrigger.h"

#include <cmath>
#include <utility>

#include "acquisition/ValueReading.h"

namespace tarnlog {

bool LevelTrigger::evaluate() {
  if (data_ == nullptr) return false;
  const double value = numericValue(data_->value());
  if (std::isnan(value)) return false;
  const double before = std::exchange(previous_, value);
  return (edge_ == 1 && value >= level_ && before < level_) ||
         (edge_ == -1 && value <= level_ && before > level_);
}

}  // namespace tarnlog
