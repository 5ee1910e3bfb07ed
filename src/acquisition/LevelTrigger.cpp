#include "acquisition/LevelTrigger.h"

#include <cmath>
#include <limits>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/ferrox3/Value.h"

namespace tarnlog {

bool LevelTrigger::evaluate() {
  if (data_ == nullptr) return false;
  double value = std::numeric_limits<double>::quiet_NaN();
  skipOnFailure([&] { value = ferrox3::numericValue(data_->value()); });
  if (std::isnan(value)) return false;
  const double before = std::exchange(previous_, value);
  return crossing_.crosses(before, value);
}

}  // namespace tarnlog
