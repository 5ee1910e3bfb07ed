#include "ui/live/ChartCycles.h"

namespace tarnlog {

void ChartCycles::begin() {
  if (std::exchange(running_, true) && ended_) ended_();
  if (clock_ == nullptr) return;
  moment_ += age();
  began_ = clock_->milliseconds();
}

double ChartCycles::age() const {
  return clock_ == nullptr || !began_ ? 0 : millisecondsBetween(*began_, clock_->milliseconds());
}

}  // namespace tarnlog
