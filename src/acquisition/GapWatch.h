#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace tarnlog {

/// Notices when nothing was answered for longer than usual: for three usual cycles and at least 0.2 s. Before
/// two cycles are complete, nobody knows what is usual. Times are microseconds.
class GapWatch {
 public:
  static constexpr std::int64_t kLeast = 200'000;

  /// An answer came; tells when the one before it came, if there is a gap between them.
  std::optional<std::int64_t> answered(std::int64_t at) {
    const std::optional<std::int64_t> before = last_;
    last_ = std::max(at, last_.value_or(at));
    const bool gap = before && usual_ > 0 && at - *before > std::max(kLeast, 3 * usual_);
    return gap ? before : std::nullopt;
  }
  /// A cycle is complete. What is usual follows the last ones, longer ones more slowly. One with a gap counts
  /// in part, since from now on all may be as slow.
  void cycle(std::int64_t began) {
    const std::int64_t took = began - std::exchange(cycleBegan_, began);
    if (!std::exchange(cycleKnown_, true)) return;
    if (usual_ == 0)
      usual_ = took;
    else if (took < usual_)
      usual_ -= (usual_ - took) / 2;
    else
      usual_ += (std::min(took, 2 * std::max(usual_, kLeast)) - usual_) / 8;
  }

 private:
  std::optional<std::int64_t> last_;
  bool cycleKnown_ = false;
  std::int64_t cycleBegan_ = 0;  ///< of the last one
  std::int64_t usual_ = 0;
};

}  // namespace tarnlog
