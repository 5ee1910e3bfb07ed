#pragma once

#include <QWidget>
#include <vector>

#include "ui/live/GraphReading.h"

namespace tarnlog {

/// A small box that shows a reading, beside the pointer or in a corner. The pointer passes through it.
class ReadingBox : public QWidget {
 public:
  explicit ReadingBox(QWidget* parent);

  /// Shows as many rows as have room in `within`, beside `anchor`; both in coordinates of the parent.
  void showBeside(const GraphReading& reading, const QPoint& anchor, const QRect& within);
  /// The same in the upper right corner.
  void showInCorner(const GraphReading& reading, const QRect& within);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Widths {
    int name = 0;
    std::vector<int> values;
  };

  Widths widths() const;
  QSize wanted(const QSize& most);
  void showAt(const QPoint& corner, const QSize& size, const QRect& within);
  void paintValues(QPainter& painter, QRect room, const QStringList& values) const;

  GraphReading reading_;
  Widths widths_;
};

}  // namespace tarnlog
