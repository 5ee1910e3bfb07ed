#pragma once

#include <string>
#include <vector>

#include "platform/controls/CWGraph.h"
#include "ui/live/ChartCycles.h"
#include "ui/live/Placed.h"

namespace tarnlog {

class GraphChoices;

/// A graph of the live display.
class GraphBlock : public Placed<GraphControl, CWGraph> {
 public:
  GraphBlock(QWidget* frame, ChartCycles& cycles);

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

  /// The cycle is over. A curve that got no value gets a gap: its later points must not stand beside earlier
  /// ones of the others.
  void endCycle();

  /// Of a plot that there is.
  const ValueDescription& description(int plot) const { return plots_.at(index(plot)).description; }
  const ValueDescription& xDescription() const { return x_; }
  const Clock* clock() const { return cycles_.clock(); }
  /// Milliseconds since the newest point that is shown.
  double sinceNewest() const;
  /// Points have their moments: this is a time chart with a clock.
  bool knowsMoments() const { return clock() != nullptr && !shown().isXY(); }

  /// And those the time of day: the system's clock was not set meanwhile.
  bool knowsTimeOfDay() const { return cycles_.wallClockAgrees(); }

  /// By which its user's choices know it: the names of its curves.
  std::string name() const;
  void apply(const GraphChoices& choices);
  void setFrozen(bool frozen) { shown().setFrozen(frozen); }
  void setOld(bool old) { shown().setFaded(old); }
  /// The font of the desktop has changed.
  void restyle();

 private:
  struct Plot {
    ValueDescription description;
    bool came = false;  ///< a point in this cycle
  };

  static std::size_t index(int plot) { return static_cast<std::size_t>(plot - 1); }

  void nameValues();

  ChartCycles& cycles_;
  std::vector<Plot> plots_;
  ValueDescription x_;
};

}  // namespace tarnlog
