#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

namespace tarnlog {

/// Notices when nothing was answered for longer than usual: for three usual cycles and at least 0.2 s. Times
/// are microseconds.
class GapWatch {
 public:
  static constexpr std::int64_t kLeast = 200'000;

  /// An answer came; tells when the one before it came, if there is a gap between them.
  std::optional<std::int64_t> answered(std::int64_t at) {
    const std::optional<std::int64_t> before = last_;
    last_ = std::max(at, last_.value_or(at));
    const bool gap = before && at - *before > std::max(kLeast, 3 * usual_);
    if (gap) cycleBegan_.reset();
    return gap ? before : std::nullopt;
  }
  /// A cycle is complete. What is usual follows the last ones, the longer ones more slowly.
  void cycle(std::int64_t began) {
    if (cycleBegan_) {
      const std::int64_t took = began - *cycleBegan_;
      usual_ += (took - usual_) / (took > usual_ && usual_ > 0 ? 8 : 2);
    }
    cycleBegan_ = began;
  }

 private:
  std::optional<std::int64_t> last_;
  std::optional<std::int64_t> cycleBegan_;
  std::int64_t usual_ = 0;
};

}  // namespace tarnlog
