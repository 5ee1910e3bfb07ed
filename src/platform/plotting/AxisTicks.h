#pragma once

namespace tarnlog {

/// A range of an axis. `sane` ranges are finite and not empty.
struct AxisRange {
  double minimum = 0;
  double maximum = 1;
  double span() const { return maximum - minimum; }
  bool operator==(const AxisRange&) const = default;
};

/// The nearest range that can be drawn: ends in order, finite, and apart by more than rounding would swallow.
AxisRange saneRange(double minimum, double maximum);

/// Where an axis has its marks: `first`, `first + step`, ...
struct AxisTicks {
  double first = 0;
  double step = 1;
  int count = 0;
  int decimals = 0;  ///< digits after the separator that tell neighbouring marks apart
  /// Zero is exactly zero, whatever the rounding of the steps before it.
  double at(int index) const;
};

/// Marks inside the range, at most `atMost` (below 1 counts as 1), at multiples of 1, 2 or 5 times a power of
/// ten.
AxisTicks ticksFor(const AxisRange& range, int atMost);
/// Marks at whole values (logical levels); those of `ticksFor` when these would be more than `atMost`.
AxisTicks wholeTicksFor(const AxisRange& range, int atMost);

}  // namespace tarnlog
