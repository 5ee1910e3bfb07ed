#pragma once

#include <QRect>
#include <QSize>
#include <cstddef>
#include <optional>
#include <vector>

#include "platform/controls/GraphAxis.h"
#include "platform/controls/GraphFrame.h"
#include "platform/plotting/ScrollingCanvas.h"
#include "ui/review/CurveTrace.h"
#include "ui/review/GraphLegend.h"
#include "ui/review/ReviewLook.h"

class QPainter;

namespace tarnlog {

/// A graph of what is looked at, as it is painted: legend and numbers around the plot area, curves, bars of
/// states, flags and cursors. Curves become pixels for a window and lines for a picture file.
class GraphSheet {
 public:
  /// Pixels that the graph needs so that all its names and so many lines of its curves can be read.
  static int leastHeight(const ReviewScene& scene, std::size_t graph, int width, const ReviewLook& look,
                         bool clickable, int lines);

  /// What is asked for later is about this graph. `clickable`: with what the mouse needs.
  void layOut(const ReviewScene& scene, std::size_t graph, const QSize& size, const ReviewLook& look,
              bool clickable);
  /// Other values are read out.
  void layOutLegend();
  /// Finds what is seen in so many columns over the plot area, and scales it.
  void see(SeenRecords& seen, int columns);

  const QRect& plotArea() const { return area_; }
  const GraphLegend& legend() const { return legend_; }
  const ReviewGraph& graph() const { return scene_->graphs()[graph_]; }
  bool isOverTime() const { return graph().kind != GraphKind::XY; }
  double timeAt(double x) const;
  double xOf(double time) const;
  /// Of the nearest point of an X-Y graph, if one is near.
  std::optional<double> timeNear(const QPoint& position) const;
  /// The bar of states here.
  std::optional<std::size_t> laneAt(const QPoint& position) const;
  /// The name of a bar is here.
  bool isOnLaneName(const QPoint& position) const;

  /// Base, grid and curves of a graph with curves, into a canvas that has the size of the plot area.
  void drawCurves(ScrollingCanvas& canvas) const;
  /// The same as lines; the bars of a graph of states.
  void paintCurves(QPainter& painter) const;
  bool hasBars() const { return graph().kind == GraphKind::States; }
  void paintAround(QPainter& painter, std::optional<std::size_t> under, bool focus) const;
  void paintOver(QPainter& painter) const;

 private:
  struct Lane {
    QRect name;
    QRect bar;
    std::vector<StateBand> bands;
  };

  void scale();
  void scaleAlong();
  void numberAxes();
  void layOutLanes();
  std::vector<double> timeLines() const;
  void drawGrid(ScrollingCanvas& canvas) const;
  void drawTrace(ScrollingCanvas& canvas, std::size_t curve, const CurveInk& ink) const;
  void paintGrid(QPainter& painter) const;
  void paintTrace(QPainter& painter, std::size_t curve) const;
  void paintLane(QPainter& painter, std::size_t curve) const;
  QRectF placeOf(const Lane& lane, const StateBand& band) const;
  void paintBands(QPainter& painter, const Lane& lane, const QColor& colour) const;
  void writeLabel(QPainter& painter, const QRectF& band, const QString& label) const;
  void paintCursors(QPainter& painter) const;
  std::vector<std::pair<QPointF, QColor>> dots(double time) const;
  QColor numberColour() const;

  const ReviewScene* scene_ = nullptr;
  std::size_t graph_ = 0;
  QSize size_;
  ReviewLook look_;
  bool clickable_ = false;
  GraphLegend legend_;
  GraphFrame frame_;
  GraphAxis x_;
  GraphAxis y_;
  QRect area_;
  int columns_ = 1;
  std::vector<CurveTrace> traces_;
  std::vector<AxisRange> ranges_;  ///< of each curve
  std::vector<Lane> lanes_;
};

}  // namespace tarnlog
