#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

namespace tarnlog::host {

/// How many frames the answer to a request has. A digit behind a request tells the adapter how many to
/// expect, so that it need not wait whether more will come.
class ElmFrameCounts {
 public:
  /// 0: not known, or not to be asked for.
  int of(std::int32_t address, std::span<const std::uint8_t> request) const {
    if (!usable_) return 0;
    const auto found = counts_.find(Key{address, {request.begin(), request.end()}});
    return found == counts_.end() ? 0 : found->second;
  }
  void learn(std::int32_t address, std::span<const std::uint8_t> request, int frames) {
    if (!usable_ || counts_.size() >= kMost) return;
    counts_.try_emplace(Key{address, {request.begin(), request.end()}}, frames <= kHighestDigit ? frames : 0);
  }
  /// The number did not serve: it is not asked for again with this request.
  void distrust(std::int32_t address, std::span<const std::uint8_t> request) {
    counts_[Key{address, {request.begin(), request.end()}}] = 0;
  }
  /// The ECU answered with the number.
  void helped() { helpedWithout_ = 0; }
  /// The ECU seemed silent with the number and answered without. Twice running is no accident.
  void helpedWithout() {
    if (++helpedWithout_ >= 2) giveUp();
  }
  /// The adapter does not know such digits.
  void giveUp() { usable_ = false; }
  void clear() {
    counts_.clear();
    usable_ = true;
    helpedWithout_ = 0;
  }

 private:
  using Key = std::pair<std::int32_t, std::vector<std::uint8_t>>;
  static constexpr std::size_t kMost = 4096;
  static constexpr int kHighestDigit = 15;

  std::map<Key, int> counts_;
  bool usable_ = true;
  int helpedWithout_ = 0;
};

}  // namespace tarnlog::host
