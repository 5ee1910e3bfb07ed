#pragma once

#include <cstdint>
#include <vector>

namespace tarnlog::host {

/// A value as a function of time, as a description gives it for simulated ECUs. Times are seconds from 0 on.
struct Signal {
  enum class Kind : std::uint8_t { constant, ramp, sine, square, table };

  Kind kind = Kind::constant;
  double first = 0;   ///< constant: the value; ramp: from; sine: mean; square: low
  double second = 0;  ///< ramp: to; sine: amplitude; square: high
  double period = 1;  ///< above 0; table: time after which it repeats
  double delay = 0;   ///< sine and square start this much later
  bool repeats = true;
  bool interpolates = false;
  std::vector<double> times{};  ///< table: ascending; empty: one value every `interval`
  std::vector<double> values{};
  double interval = 1;  ///< table without times: seconds per value
};

}  // namespace tarnlog::host
