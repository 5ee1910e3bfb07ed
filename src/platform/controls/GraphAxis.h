#pragma once

#include <QString>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "platform/plotting/Autoscale.h"
#include "platform/plotting/AxisTicks.h"

namespace tarnlog {

/// What is set for an axis of a graph, and the range that it has now.
struct GraphAxis {
  AxisRange range() const {
    return ranks ? *ranks : chosen ? *chosen : autoscale ? automatic.range() : fixed;
  }
  AxisTicks ticks(int atMost) const {
    return binary || !names.empty() ? wholeTicksFor(range(), atMost) : ticksFor(range(), atMost);
  }
  /// Of a value that has one.
  const QString* nameOf(double value) const {
    const auto found =
        std::find_if(names.begin(), names.end(), [value](auto& each) { return each.first == value; });
    return found == names.end() ? nullptr : &found->second;
  }
  /// A rank says nothing to a reader.
  bool hasNumbers() const { return labels && !ranks; }
  bool follows() const { return autoscale && !ranks; }

  AxisRange fixed;
  Autoscale automatic;
  std::optional<AxisRange> ranks;                 ///< the X axis of a time chart
  std::optional<AxisRange> chosen;                ///< of one curve, where each has its own
  std::vector<std::pair<double, QString>> names;  ///< written instead of numbers, in the order of the values
  QString caption;
  bool autoscale = false;
  bool labels = true;
  bool grid = true;
  bool binary = false;
};

}  // namespace tarnlog
