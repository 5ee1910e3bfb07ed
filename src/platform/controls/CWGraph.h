#pragma once

#include <QColor>
#include <QWidget>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/controls/GraphAxis.h"
#include "platform/controls/GraphFrame.h"
#include "platform/controls/GraphOverlay.h"
#include "platform/controls/PaintPacer.h"
#include "platform/plotting/ChartPicture.h"
#include "platform/plotting/PixelScale.h"
#include "platform/plotting/PlotHistory.h"
#include "platform/plotting/TimeLine.h"
#include "platform/plotting/TimeView.h"

namespace tarnlog {

/// A graph with several plots over one pair of axes: a time chart, whose x is the rank of the point and which
/// scrolls once `history` points have come, or X-Y. A value that is not finite makes a gap, and so does a
/// pause in the coming of points. Numbers at the axes are written in the widget's locale.
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
  /// Points that each plot shows, at least 1. Setting it forgets all points.
  int history() const { return history_; }
  void setHistory(int points);
  /// Points that each plot keeps for a look back; it keeps `history` of them at least.
  void setKept(int points);
  bool isXY() const { return xy_; }
  /// Setting it forgets all points.
  void setXY(bool xy);

  /// Ends in the wrong order, equal or not finite give the nearest range that can be drawn. Ends autoscale. A
  /// time chart's X axis follows `history` instead.
  void setAxisRange(AxisId axis, double minimum, double maximum);
  double axisMinimum(AxisId axis) const { return axisOf(axis).range().minimum; }
  double axisMaximum(AxisId axis) const { return axisOf(axis).range().maximum; }
  /// The axis follows the points that are shown.
  void setAxisAutoscale(AxisId axis, bool on);
  bool axisAutoscale(AxisId axis) const { return axisOf(axis).autoscale; }
  void setAxisCaption(AxisId axis, const QString& caption);
  void setAxisLabels(AxisId axis, bool labels);
  void setAxisGrid(AxisId axis, bool grid);
  /// For logical levels: marks at whole values only.
  void setAxisBinary(AxisId axis, bool binary = true);
  /// Written at these values of the Y axis, instead of numbers; where none is in its range: numbers.
  void setValueNames(std::vector<std::pair<double, QString>> names);

  /// Plots are numbered from 1; a number without a plot does nothing.
  int addPlot();
  int plotCount() const { return static_cast<int>(plots_.size()); }
  /// A colour that the background would swallow gets a rim.
  void setPlotColour(int plot, const QColor& colour);
  QColor plotColour(int plot) const;
  /// `moment`, of a time chart's first plot, is when the point came: see `TimeLine`.
  void chartY(int plot, double y, double moment = 0);
  void plotXY(int plot, double x, double y);
  /// Forgets all points and marks, and releases a frozen picture; plots and axes stay.
  void clearData();
  /// A frozen graph goes on showing, and answering for, the points of this moment. Those that come are kept
  /// and shown when it is released.
  void setFrozen(bool frozen);
  bool isFrozen() const { return frozen_; }
  /// Faded curves are nearly grey: they are not of now.
  void setFaded(bool faded);
  /// A flag at the newest point of a time chart.
  void addMark(const QString& text, const QColor& colour);
  const std::vector<GraphMark>& marks() const { return marks_; }

  /// The grid of a time chart stands at whole times before its newest point, where the moments of its points
  /// are known, instead of at ranks.
  void setTimeGrid(bool on);
  /// With the times written at the lines.
  void setTimeLabels(bool on);
  bool timeLabels() const { return overlay_.labels(); }
  /// Every curve of the graph uses its whole height; the Y axis is that of the chosen one.
  void setOwnScales(bool own);
  bool ownScales() const { return ownScales_; }
  void chooseScale(int plot);
  int chosenScale() const { return chosen_; }
  /// Curves twice as wide.
  void setThickCurves(bool thick);

  /// Lines at points that someone looks at: the readout, with a dot on every curve, and two cursors with
  /// their letters. -1: none.
  enum Cursor { Readout, CursorA, CursorB };
  void setCursor(Cursor cursor, std::int64_t point);
  std::int64_t cursor(Cursor cursor) const { return cursors_[static_cast<std::size_t>(cursor)]; }

  /// What a frozen time chart shows of the points that it keeps; none: what it showed when it was frozen.
  /// Forgotten at its release.
  void setView(const std::optional<TimeView>& view);
  TimeView view() const;
  PointSpan keptPoints() const;

  // Points are numbered from 0 in the order of arrival; those of several plots with one number belong
  // together. What follows is, for a frozen graph, about those that it had when it was frozen.
  /// The points that are shown: first to before end.
  std::int64_t firstPoint() const;
  std::int64_t endShown() const;
  /// Behind the newest point that any plot has, whether the view reaches there or not.
  std::int64_t endPoint() const;
  /// Of a point of a plot that is kept; NaN where there is none.
  double valueOf(int plot, std::int64_t point) const;
  double xValueOf(int plot, std::int64_t point) const;
  /// Of a plot's points from `first` to before `end`.
  Summary summaryOf(int plot, std::int64_t first, std::int64_t end) const;
  /// When the points of a time chart came.
  const TimeLine& times() const { return heldTimes_ ? *heldTimes_ : times_; }
  /// The point under this position of the widget: of a time chart the one at its x, of an X-Y graph the
  /// nearest. -1 where there is none.
  std::int64_t pointAt(const QPoint& position) const;
  /// Where a plot shows a point, limited to the plot area. A time chart has a place for values that are not
  /// finite, at its bottom.
  QPointF placeOf(int plot, std::int64_t point) const;
  /// X of a time chart's point, which may lie between two, from the left edge of the plot area.
  double chartX(double point) const;
  /// The other way round.
  double pointAtX(double x) const;
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
    std::uint32_t painted = 0;
    std::uint32_t rim = 0;
    Autoscale scale;  ///< its own
  };

  GraphAxis& axisOf(AxisId axis) { return axis == YAxis ? y_ : x_; }
  const GraphAxis& axisOf(AxisId axis) const { return axis == YAxis ? y_ : x_; }
  const PlotHistory* shown(int plot) const;
  std::int64_t chartPoint(int x) const;
  std::int64_t nearestPoint(const QPoint& position) const;
  double distanceTo(const QPoint& position, int plot, std::int64_t point) const;
  void append(int plot, double x, double y);
  void keepPoints();
  void chooseColours();
  void layOut();
  void redrawAll();

  Extremes shownExtremes(const Plot& plot) const;
  /// Whether a range has changed.
  bool follow();
  bool followAlong();
  bool followUp();
  /// What the points need next counts alone, however wide the ranges were.
  void forgetScales();
  void prepareCanvas();
  void collectCurves(int rows);
  void collectGrid(int rows);
  bool hasTimeGrid() const;
  std::int64_t firstColumn() const;
  void paintAround(QPainter& painter);
  void paintCanvas(QPainter& painter);
  void paintCursors(QPainter& painter);
  void paintPlot(QPainter& painter);
  GraphOverlay::Seen seen() const;
  GraphCursorLine cursorLine(Cursor cursor) const;

  std::vector<Plot> plots_;
  TimeLine times_;
  std::optional<TimeLine> heldTimes_;
  std::vector<GraphMark> marks_;
  std::array<std::int64_t, 3> cursors_{-1, -1, -1};
  GraphAxis x_;
  GraphAxis y_;
  int history_ = 100;
  int kept_ = 0;
  bool xy_ = false;
  bool frozen_ = false;
  bool faded_ = false;
  bool timeGrid_ = false;
  bool ownScales_ = false;
  bool thick_ = false;
  int chosen_ = 1;
  std::optional<TimeView> view_;
  GraphFrame outline_;
  GraphOverlay overlay_;
  ChartPicture picture_;
  ChartPicture::Scene scene_;
  std::vector<ChartPicture::Curve> curves_;
  std::vector<double> levels_;
  std::vector<double> xLines_;
  PaintPacer pacer_{this};
};

}  // namespace tarnlog
