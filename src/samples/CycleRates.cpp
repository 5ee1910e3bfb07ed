#include "samples/CycleRates.h"

#include <algorithm>
#include <utility>

namespace tarnlog {

namespace {

constexpr std::int64_t kSecond = 1'000'000;

}  // namespace

void CycleRates::add(std::int64_t at) {
  if (cycles_ == 0) {
    from_ = at;
    windowEnd_ = at + kSecond;
  }
  closeWindows(at);
  ++inWindow_;
  ++cycles_;
}

void CycleRates::closeWindows(std::int64_t till) {
  if (till < windowEnd_) return;
  note(std::exchange(inWindow_, 0), 1);
  const std::int64_t empty = (till - windowEnd_) / kSecond;
  note(0, static_cast<std::uint64_t>(empty));
  windowEnd_ += (empty + 1) * kSecond;
}

void CycleRates::note(std::size_t cycles, std::uint64_t windows) {
  if (windows == 0) return;
  // Ahead of need: a faster second than all before should not ask for memory.
  if (cycles >= windowsOf_.size()) windowsOf_.resize(std::max(2 * cycles, std::size_t{1024}));
  windowsOf_[cycles] += windows;
  windows_ += windows;
}

/// Of the window at this place when they are sorted by their cycles.
double CycleRates::cyclesOfWindow(std::uint64_t rank) const {
  std::size_t cycles = 0;
  for (std::uint64_t before = windowsOf_[0]; before <= rank; before += windowsOf_[cycles]) ++cycles;
  return static_cast<double>(cycles);
}

CycleRates::Rates CycleRates::until(std::int64_t end) {
  if (cycles_ == 0) return {};
  closeWindows(end);
  if (windows_ == 0) {
    if (end <= from_) return {};
    const double rate = static_cast<double>(cycles_) * kSecond / static_cast<double>(end - from_);
    return {rate, rate, rate};
  }
  const double median = (cyclesOfWindow((windows_ - 1) / 2) + cyclesOfWindow(windows_ / 2)) / 2;
  return {cyclesOfWindow(0), median, cyclesOfWindow(windows_ - 1)};
}

}  // namespace tarnlog
