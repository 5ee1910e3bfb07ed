#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/controls/CWGraph.h"
#include "platform/time/Clock.h"
#include "ui/live/Placed.h"

namespace tarnlog {

class GraphChoices;

/// A graph of the live display.
class GraphBlock : public Placed<GraphControl, CWGraph> {
 public:
  /// The clock, when there is one, gives every point its moment.
  GraphBlock(QWidget* frame, const Clock* clock);

  void setEnabled(bool enabled) override { shown().setEnabled(enabled); }
  void setTitle(std::string_view title) override;
  void bringToFront() override { shown().raise(); }
  void setHistory(std::int32_t points) override { shown().setHistory(points); }
  void setXY(bool xy) override { shown().setXY(xy); }
  void setAxisRange(Axis axis, double minimum, double maximum) override;
  void setAxisAutoscale(Axis axis, bool on) override;
  void setAxisCaption(Axis axis, std::string_view caption) override;
  void setAxisLabels(Axis axis, bool labels) override;
  void setAxisBinary(Axis axis) override;
  void addPlot() override;
  void setPlotColour(int plot, Colour colour) override;
  void describePlot(int plot, const ValueDescription& description) override;
  void describeX(const ValueDescription& description) override { x_ = description; }
  void chartY(int plot, double y) override;
  void plotXY(int plot, double x, double y) override { shown().plotXY(plot, x, y); }
  void clearData() override { shown().clearData(); }

  /// Of a plot that there is.
  const ValueDescription& description(int plot) const { return descriptions_.at(index(plot)); }
  const ValueDescription& xDescription() const { return x_; }
  const Clock* clock() const { return clock_; }
  /// Milliseconds since the newest point that is shown.
  double sinceNewest() const;
  /// Points have their moments: this is a time chart with a clock.
  bool knowsMoments() const { return clock_ != nullptr && !shown().isXY(); }

  /// By which its user's choices know it: the names of its curves.
  std::string name() const;
  void apply(const GraphChoices& choices);
  void setFrozen(bool frozen) { shown().setFrozen(frozen); }
  void setOld(bool old) { shown().setFaded(old); }
  /// The axis becomes that of this plot, where each has its own scale.
  void chooseScale(int plot);
  /// The font of the desktop has changed.
  void restyle();

 private:
  static std::size_t index(int plot) { return static_cast<std::size_t>(plot - 1); }

  void takeMoment();
  void nameValues();

  const Clock* clock_;
  std::optional<Milliseconds> newest_;  ///< when the last point came
  double moment_ = 0;                   ///< the same, as milliseconds that never begin again
  std::vector<ValueDescription> descriptions_;
  ValueDescription x_;
};

}  // namespace tarnlog
