#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "ui/review/ReviewScene.h"
#include "ui/review/SeenRows.h"

class QScrollArea;
class QSplitter;

namespace tarnlog {

class ReviewGraphWidget;
class TimeAxis;

/// All graphs of what is looked at, one above the other over one time axis. Their heights can be changed at
/// the lines between them; where there are many, they scroll. Data can be dropped on them and between them.
class ReviewGraphs : public QWidget {
  Q_OBJECT
 public:
  /// The scene outlives it, or is told nothing more once it is gone.
  explicit ReviewGraphs(ReviewScene& scene, QWidget* parent = nullptr);

  const std::vector<ReviewGraphWidget*>& graphs() const { return graphs_; }
  TimeAxis& axis() const { return *axis_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void react(unsigned changes);
  void arrange();
  void placeAxis();
  void showChosen();
  std::size_t graphBelow(const QPoint& at) const;
  void showTarget(std::optional<std::size_t> before);

  ReviewScene& scene_;
  std::shared_ptr<SeenRecords> seen_ = std::make_shared<SeenRecords>();
  QScrollArea* scroll_;
  QSplitter* column_;
  TimeAxis* axis_;
  std::vector<ReviewGraphWidget*> graphs_;
};

}  // namespace tarnlog
