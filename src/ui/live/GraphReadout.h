#pragma once

#include <QObject>
#include <QPoint>
#include <map>

#include "ui/live/GraphReading.h"
#include "ui/live/Hairline.h"
#include "ui/live/ReadingBox.h"

namespace tarnlog {

/// Reads out the point under the mouse, for every curve of the graph. With the keyboard: left and right move
/// along the points of the graph that has the focus (with Ctrl ten times as far), Home and End go to the
/// oldest and the newest, Escape ends.
class GraphReadout : public QObject {
 public:
  /// Draws over the children of this frame.
  explicit GraphReadout(QWidget& frame);

  void watch(GraphBlock& block);
  void hide();
  bool isShown() const { return current_ != nullptr; }
  const GraphReading& reading() const { return reading_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void forget(QObject* graph);
  void point(GraphBlock& block, const QPoint& at);
  void refresh();
  void refreshSoon();
  bool handleKey(GraphBlock& block, int key, Qt::KeyboardModifiers modifiers);
  void move(GraphBlock& block, std::int64_t point);

  QWidget& frame_;
  std::map<QObject*, GraphBlock*> blocks_;
  GraphBlock* current_ = nullptr;
  QPoint at_;  ///< in coordinates of the current graph
  GraphReading reading_;
  bool refreshDue_ = false;
  Hairline* line_;
  ReadingBox* box_;
};

}  // namespace tarnlog
