#include "platform/plotting/PlotHistory.h"

namespace tarnlog {

void PlotHistory::setCapacity(std::int32_t points) {
  y_.setCapacity(points);
  if (x_) x_->setCapacity(points);
}

void PlotHistory::setKeepsX(bool x) {
  x_ = x ? std::optional<PointSeries>(std::in_place) : std::nullopt;
  if (x_) x_->setCapacity(capacity());
  clear();
}

void PlotHistory::append(double x, double y) {
  y_.append(y);
  if (x_) x_->append(x);
}

void PlotHistory::clear() {
  y_.clear();
  if (x_) x_->clear();
}

void PlotHistory::dropBefore(std::int64_t index) {
  y_.dropBefore(index);
  if (x_) x_->dropBefore(index);
}

}  // namespace tarnlog
