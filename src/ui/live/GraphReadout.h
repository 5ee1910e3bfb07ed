#pragma once

#include <QObject>
#include <QPoint>
#include <cstdint>
#include <map>
#include <vector>

#include "ui/live/GraphReading.h"
#include "ui/live/ReadingBox.h"

namespace tarnlog {

/// Reads out the point under the mouse, for every curve of the graph; in the other time charts a line stands
/// at the same point, and their values are read out, too, as far as they are seen. With the keyboard: left
/// and right move along the points of the graph that has the focus (with Ctrl ten times as far), Home and End
/// go to the oldest and the newest, Escape ends.
class GraphReadout : public QObject {
 public:
  /// Draws over the children of this frame.
  explicit GraphReadout(QWidget& frame);

  void watch(GraphBlock& block);
  void hide();
  bool isShown() const { return current_ != nullptr; }
  const GraphReading& reading() const { return reading_; }
  /// The graph that is read out, null when none is, and the point of it.
  const GraphBlock* block() const { return current_; }
  std::int64_t point() const { return point_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void forget(QObject* graph);
  void pointTo(GraphBlock& block, const QPoint& at);
  void showLines();
  std::vector<GraphBlock*> seenWith(const GraphBlock& block) const;
  void refresh();
  void refreshSoon();
  bool handleKey(GraphBlock& block, int key, Qt::KeyboardModifiers modifiers);
  void move(GraphBlock& block, std::int64_t point);

  QWidget& frame_;
  std::map<QObject*, GraphBlock*> blocks_;
  GraphBlock* current_ = nullptr;
  std::int64_t point_ = -1;
  QPoint at_;  ///< in coordinates of the current graph
  GraphReading reading_;
  bool refreshDue_ = false;
  ReadingBox* box_;
};

}  // namespace tarnlog
