#pragma once

#include "platform/controls/CWGraph.h"
#include "ui/acquisition/Placed.h"

namespace tarnlog {

/// A graph of the live display.
class GraphBlock : public Placed<GraphControl, CWGraph> {
 public:
  explicit GraphBlock(QWidget* frame);

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
  void addPlot() override { shown().addPlot(); }
  void setPlotColour(int plot, Colour colour) override;
  void chartY(int plot, double y) override { shown().chartY(plot, y); }
  void plotXY(int plot, double x, double y) override { shown().plotXY(plot, x, y); }
  void clearData() override { shown().clearData(); }

  /// The font of the desktop has changed.
  void restyle();
};

}  // namespace tarnlog
