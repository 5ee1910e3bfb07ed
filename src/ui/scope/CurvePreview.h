#pragma once

#include <QColor>
#include <QWidget>

namespace tarnlog {

/// A small piece of a graph, to see how a colour stands out from the background of graphs.
class CurvePreview : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;
  void setColour(const QColor& colour);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_ = Qt::black;
};

}  // namespace tarnlog
