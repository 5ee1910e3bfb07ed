#pragma once

#include <QColor>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/controls/GraphAxis.h"
#include "platform/controls/GraphFrame.h"
#include "platform/controls/PaintPacer.h"
#include "platform/plotting/PixelScale.h"
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
  double axisMinimum(AxisId axis) const { return axisOf(axis).range().minimum; }
  double axisMaximum(AxisId axis) const { return axisOf(axis).range().maximum; }
  /// The axis follows the points that are kept.
  void setAxisAutoscale(AxisId axis, bool on);
  bool axisAutoscale(AxisId axis) const { return axisOf(axis).autoscale; }
  void setAxisCaption(AxisId axis, const QString& caption);
  void setAxisLabels(AxisId axis, bool labels);
  void setAxisGrid(AxisId axis, bool grid);
  /// For logical levels: marks at whole values only.
  void setAxisBinary(AxisId axis, bool binary = true);

  /// Plots are numbered from 1; a number without a plot does nothing.
  int addPlot();
  int plotCount() const { return static_cast<int>(plots_.size()); }
  /// A colour that the background would swallow is painted in a near one that can be seen.
  void setPlotColour(int plot, const QColor& colour);
  /// As it is painted.
  QColor plotColour(int plot) const;
  /// `moment` is kept with the point, for whoever asks `momentOf`; it places nothing.
  void chartY(int plot, double y, double moment = 0);
  void plotXY(int plot, double x, double y);
  /// Forgets all points, and releases a frozen picture; plots and axes stay.
  void clearData();
  /// A frozen graph goes on showing, and answering for, the points of this moment. Those that come are kept
  /// and shown when it is released.
  void setFrozen(bool frozen);
  bool isFrozen() const { return frozen_; }
  /// Faded curves are nearly grey: they are not of now.
  void setFaded(bool faded);

  // Points are numbered from 0 in the order of arrival; those of several plots with one number belong
  // together. What follows is about the points that are shown.
  /// The numbers that any plot has: first to before end.
  std::int64_t firstPoint() const;
  std::int64_t endPoint() const;
  /// Of a point of a plot; NaN where there is none.
  double valueOf(int plot, std::int64_t point) const;
  double xValueOf(int plot, std::int64_t point) const;
  /// The moment given with the first plot's point of a time chart; 0 where there is none.
  double momentOf(std::int64_t point) const;
  /// The point under this position of the widget: of a time chart the one at its x, of an X-Y graph the
  /// nearest. -1 where there is none.
  std::int64_t pointAt(const QPoint& position) const;
  /// Where a plot shows a point, limited to the plot area. A time chart has a place for values that are not
  /// finite, at its bottom.
  QPointF placeOf(int plot, std::int64_t point) const;
  /// The area inside the axes.
  QRect plotArea() const { return outline_.plotArea(); }

  QSize sizeHint() const override { return {320, 160}; }
  QSize minimumSizeHint() const override { return {1, 1}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Plot {
    const PlotHistory& shown() const { return held ? *held : points; }
    PlotHistory points;
    std::optional<PlotHistory> held;  ///< what a frozen picture shows
    QColor colour;
    std::uint32_t painted = 0;  ///< `colour` as it can be seen
    std::int64_t drawn = 0;     ///< points before this one are in the canvas
  };

  GraphAxis& axisOf(AxisId axis) { return axis == YAxis ? y_ : x_; }
  const GraphAxis& axisOf(AxisId axis) const { return axis == YAxis ? y_ : x_; }
  const PlotHistory* shown(int plot) const;
  double chartX(std::int64_t point) const;
  std::int64_t chartPoint(int x) const;
  std::int64_t nearestPoint(const QPoint& position) const;
  double distanceTo(const QPoint& position, int plot, std::int64_t point) const;
  void append(int plot, double x, double y);
  QColor colourOf(const Plot& plot) const;
  void chooseColours();
  void layOut();
  void redrawAll();

  bool followPoints();
  void prepareCanvas();
  void drawAll();
  void drawNewColumns();
  void drawColumns(std::int64_t from, std::int64_t to);
  void drawCurve(const Plot& plot, std::int64_t from);
  void drawGrid(std::int64_t from, std::int64_t to);
  std::int64_t firstColumn() const;
  void paintAround(QPainter& painter);
  void paintCanvas(QPainter& painter);

  std::vector<Plot> plots_;
  GraphAxis x_;
  GraphAxis y_;
  int history_ = 100;
  bool xy_ = false;
  bool frozen_ = false;
  bool faded_ = false;
  GraphFrame outline_;
  ScrollingCanvas canvas_;
  bool stale_ = true;    ///< the canvas is to be drawn from the start
  ColumnScale columns_;  ///< of a time chart
  PixelScale xColumns_;
  PixelScale rows_;
  PaintPacer pacer_{this};
};

}  // namespace tarnlog
