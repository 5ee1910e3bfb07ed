#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "platform/plotting/ScrollingCanvas.h"
#include "ui/review/GraphSheet.h"
#include "ui/review/ReviewKeys.h"

namespace tarnlog {

/// One graph of what is looked at. The wheel zooms at the pointer, sideways or with Shift it pans; dragging
/// pans, with Shift it selects a stretch to zoom into, with Ctrl it shifts the record of the chosen curve
/// that is laid over the first one; a line of a cursor can be dragged. A click sets the readout; on a name it
/// chooses the curve, and on the cross beside it, or twice, takes it away. Up and Down choose curves, Delete
/// takes the chosen one away; the other keys are those of `handleReviewKey`.
class ReviewGraphWidget : public QWidget {
  Q_OBJECT
 public:
  /// Graphs of one column share what they have found of the records.
  ReviewGraphWidget(ReviewScene& scene, std::size_t graph, std::shared_ptr<SeenRecords> seen,
                    QWidget* parent);

  std::size_t graph() const { return graph_; }
  /// What is behind this number, has changed.
  void setGraph(std::size_t graph);
  void react(unsigned changes);
  /// Where the curves are.
  QRect plotArea();
  /// Where what is dragged would go.
  enum class Target { None, Graph, Above, Below };
  void showTarget(Target target);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  enum class Gesture { None, Press, Pan, Select, Cursor, Align };
  const ReviewGraph& shown() const { return scene_.graphs()[graph_]; }
  bool exists() const { return graph_ < scene_.graphs().size(); }
  void prepare();
  void draw();
  void stale();
  void describe();
  void closeMenu();
  void paintPicture(QPainter& painter);
  void paintSelection(QPainter& painter);
  void paintTarget(QPainter& painter);
  void click(const QPoint& at);
  void readOut(double x);
  std::optional<std::size_t> curveAt(const QPoint& at) const;
  std::optional<ReviewCursor> cursorAt(const QPoint& at) const;
  void beginGesture(const QPoint& at, Qt::KeyboardModifiers modifiers);
  void goOn(const QPoint& at);
  std::optional<std::size_t> laidOverRecord() const;
  void chooseNext(int by);
  void removeChosen();
  Target targetAt(const QPoint& at) const;

  ReviewScene& scene_;
  std::size_t graph_;
  std::shared_ptr<SeenRecords> seen_;
  GraphSheet sheet_;
  ScrollingCanvas canvas_;
  bool laidOut_ = false;
  bool drawn_ = false;
  Gesture gesture_ = Gesture::None;
  bool goesOn_ = false;  ///< what is seen has moved since the gesture began
  QPoint pressed_;
  QPoint last_;
  ReviewCursor dragged_ = ReviewCursor::Readout;
  std::optional<std::size_t> under_;  ///< the pointer: of the legend
  Target target_ = Target::None;      ///< of what is dragged here
  ReviewWheel wheel_;
};

}  // namespace tarnlog
