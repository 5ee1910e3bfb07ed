#pragma once

#include <algorithm>
#include <chrono>
#include <random>

namespace tarnlog {

/// When a broker is tried again: later each time, and not when all others of a fleet do.
class PublishBackOff {
 public:
  using Duration = std::chrono::milliseconds;

  PublishBackOff(Duration first, Duration longest) : first_(first), longest_(longest), next_(first) {}

  Duration failed() {
    const Duration usual = next_;
    next_ = std::min(longest_, next_ * 2);
    return usual / 2 + Duration(random_() % static_cast<unsigned>(usual.count() + 1));
  }
  void succeeded() { next_ = first_; }

 private:
  Duration first_;
  Duration longest_;
  Duration next_;
  std::minstd_rand random_{std::random_device{}()};
};

}  // namespace tarnlog
