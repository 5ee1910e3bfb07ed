#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarnlog {

/// How many polling cycles there are in a second: counts them in windows of one second, the first of which
/// begins with the first cycle. Times are microseconds.
class CycleRates {
 public:
  struct Rates {
    double least = 0;
    double median = 0;
    double most = 0;
  };

  /// A cycle that began then; not before those already counted.
  void add(std::int64_t at);
  /// Over whole windows only. Where there is none, the rate is that of all the time until `end`.
  Rates until(std::int64_t end);

 private:
  void closeWindows(std::int64_t till);
  void note(std::size_t cycles, std::uint64_t windows);
  double cyclesOfWindow(std::uint64_t rank) const;

  std::int64_t from_ = 0;
  std::int64_t windowEnd_ = 0;
  std::size_t inWindow_ = 0;
  std::uint64_t cycles_ = 0;
  std::uint64_t windows_ = 0;
  std::vector<std::uint64_t> windowsOf_;  ///< by their number of cycles
};

}  // namespace tarnlog
