#pragma once

#include <QColor>
#include <QPixmap>
#include <QWidget>
#include <cstdint>
#include <vector>

#include "platform/controls/PaintPacer.h"
#include "platform/plotting/Autoscale.h"
#include "platform/plotting/AxisTicks.h"
#include "platform/plotting/PlotHistory.h"
#include "platform/plotting/ScrollingCanvas.h"

namespace tarnlog {

/// A graph with several plots over one pair of axes: a time chart, whose x is the rank of the point and which
/// scrolls once `history` points have come, or X-Y. A value that is not finite makes a gap. Numbers at the
/// axes are written in the widget's locale.
class CWGraph : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString title READ title WRITE setTitle)
  Q_PROPERTY(int history READ history WRITE setHistory)
  Q_PROPERTY(bool xy READ isXY WRITE setXY)

 public:
  enum AxisId { XAxis = 1, YAxis = 2 };
  Q_ENUM(AxisId)

  explicit CWGraph(QWidget* parent = nullptr);

  /// The name for assistive technology, and the tool tip.
  QString title() const { return accessibleName(); }
  void setTitle(const QString& title);
  /// Points that each plot keeps, at least 1. Setting it forgets all points.
  int history() const { return history_; }
  void setHistory(int points);
  bool isXY() const { return xy_; }
  /// Setting it forgets all points.
  void setXY(bool xy);

  /// Ends in the wrong order, equal or not finite give the nearest range that can be drawn. Ends autoscale. A
  /// time chart's X axis follows `history` instead.
  void setAxisRange(AxisId axis, double minimum, double maximum);
  double axisMinimum(AxisId axis) const { return range(axis).minimum; }
  double axisMaximum(AxisId axis) const { return range(axis).maximum; }
  /// The axis follows the points that are kept.
  void setAxisAutoscale(AxisId axis, bool on);
  bool axisAutoscale(AxisId axis) const { return settings(axis).autoscale; }
  void setAxisCaption(AxisId axis, const QString& caption);
  void setAxisLabels(AxisId axis, bool labels);
  void setAxisGrid(AxisId axis, bool grid);
  /// For logical levels: marks at whole values only.
  void setAxisBinary(AxisId axis, bool binary = true);

  /// Plots are numbered from 1; a number without a plot does nothing.
  int addPlot();
  int plotCount() const { return static_cast<int>(plots_.size()); }
  void setPlotColour(int plot, const QColor& colour);
  void chartY(int plot, double y);
  void plotXY(int plot, double x, double y);
  /// Forgets all points; plots and axes stay.
  void clearData();
  /// Value of a time chart's plot under this x of the widget; NaN where there is none.
  double valueAt(int plot, int x) const;
  /// The area inside the axes.
  QRect plotArea() const;

  QSize sizeHint() const override { return {320, 160}; }
  QSize minimumSizeHint() const override { return {1, 1}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct AxisSettings {
    AxisRange fixed;
    Autoscale automatic;
    QString caption;
    bool autoscale = false;
    bool labels = true;
    bool grid = true;
    bool binary = false;
  };
  struct Plot {
    PlotHistory points;
    QColor colour;
    std::int64_t drawn = 0;  ///< points before this one are in the canvas
  };

  AxisSettings& settings(AxisId axis) { return axes_[axis == YAxis ? 1 : 0]; }
  const AxisSettings& settings(AxisId axis) const { return axes_[axis == YAxis ? 1 : 0]; }
  AxisRange range(AxisId axis) const;
  AxisTicks ticks(AxisId axis, const QRect& area) const;
  void redrawAll();
  void append(int plot, double x, double y);

  bool followPoints();
  void prepareCanvas();
  void drawNewColumns();
  void drawTimePoints(Plot& plot, std::int64_t from);
  void drawColumns(Plot& plot);
  void drawXY(Plot& plot);
  void drawGrid(std::int64_t from, std::int64_t to);
  std::int64_t columnOf(std::int64_t point) const;
  std::int64_t firstColumn() const;
  double rowOf(double y) const;
  double xyColumnOf(double x) const;
  void paintFrame();
  void paintXLabels(QPainter& painter, const QRect& area) const;
  void paintYLabels(QPainter& painter, const QRect& area) const;

  std::vector<Plot> plots_;
  AxisSettings axes_[2];
  int history_ = 100;
  bool xy_ = false;
  bool stale_ = true;         ///< the canvas is to be drawn from the start
  bool frameStale_ = true;    ///< so are axes and labels
  std::int64_t drawnTo_ = 0;  ///< columns before this one are in the canvas
  ScrollingCanvas canvas_;
  QPixmap frame_;
  PaintPacer pacer_{this};
};

}  // namespace tarnlog
