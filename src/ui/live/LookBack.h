#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <vector>

#include "ui/live/GraphBlock.h"
#include "ui/live/GraphReadout.h"
#include "ui/live/ReadingBox.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace tarnlog {

/// Moves through the points that a frozen picture keeps: the same stretch of time in all time charts. The
/// wheel zooms, sideways or with Shift it pans, and so does dragging. Two cursors, A and B, measure what lies
/// between them; Escape on a graph takes them away.
class LookBack : public QObject {
  Q_OBJECT
 public:
  using Graphs = std::function<std::vector<GraphBlock*>()>;

  /// The box of the cursors is shown over this frame.
  LookBack(QWidget& frame, Graphs graphs, const GraphReadout& readout);

  void watch(GraphBlock& block);
  /// A released picture forgets view and cursors.
  void setActive(bool active);

  /// So many steps nearer, or away (below 0), around the readout or the middle.
  void zoom(int steps);
  /// So many steps later, or earlier (below 0).
  void pan(int steps);
  void fitAll();
  /// At a point; where it is already, it goes.
  void setCursor(CWGraph::Cursor cursor, std::int64_t point);
  /// At the readout, or in the middle.
  void setCursor(CWGraph::Cursor cursor);
  void clearCursors();
  /// Anew: other charts may be seen, or the frame may have another size.
  void showCursors();
  /// The box of the cursors, if there are any.
  void showBox(bool shown) { box_->setVisible(shown && hasCursors()); }
  bool hasCursors() const { return a_ >= 0 || b_ >= 0; }
  /// What the box of the cursors shows.
  const GraphReading& reading() const { return reading_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  /// Another stretch of time is shown.
  void moved();

 private:
  struct Drag {
    CWGraph* graph = nullptr;
    int x = 0;
  };

  CWGraph* leading() const;
  double anchor() const;
  void show(const TimeView& view);
  void zoomAt(const CWGraph& graph, double factor, double anchor);
  void panBy(const CWGraph& graph, double points);
  void drag(CWGraph& graph, const QMouseEvent& move);
  bool wheel(CWGraph& graph, const QWheelEvent& event);
  bool escape(QKeyEvent& event);

  QWidget& frame_;
  Graphs graphs_;
  const GraphReadout& readout_;
  ReadingBox* box_;
  bool active_ = false;
  Drag drag_;
  std::int64_t a_ = -1;
  std::int64_t b_ = -1;
  GraphReading reading_;
};

}  // namespace tarnlog
