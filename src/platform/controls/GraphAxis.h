#pragma once

#include <QString>
#include <optional>

#include "platform/plotting/Autoscale.h"
#include "platform/plotting/AxisTicks.h"

namespace tarnlog {

/// What is set for an axis of a graph, and the range that it has now.
struct GraphAxis {
  AxisRange range() const { return ranks ? *ranks : autoscale ? automatic.range() : fixed; }
  AxisTicks ticks(int atMost) const {
    return binary ? wholeTicksFor(range(), atMost) : ticksFor(range(), atMost);
  }
  /// A rank says nothing to a reader.
  bool hasNumbers() const { return labels && !ranks; }
  bool follows() const { return autoscale && !ranks; }

  AxisRange fixed;
  Autoscale automatic;
  std::optional<AxisRange> ranks;  ///< the X axis of a time chart
  QString caption;
  bool autoscale = false;
  bool labels = true;
  bool grid = true;
  bool binary = false;
};

}  // namespace tarnlog
