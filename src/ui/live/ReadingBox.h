#pragma once

#include <QWidget>

#include "ui/live/GraphReading.h"

namespace tarnlog {

/// A small box that shows a reading beside the pointer. The pointer passes through it.
class ReadingBox : public QWidget {
 public:
  explicit ReadingBox(QWidget* parent);

  /// Shows as many rows as have room in `within`, beside `anchor`; both in coordinates of the parent.
  void showBeside(const GraphReading& reading, const QPoint& anchor, const QRect& within);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize wanted(int mostHeight) const;

  GraphReading reading_;
};

}  // namespace tarnlog
