#include "ui/acquisition/GraphicFrameWidget.h"

#include <QEvent>

namespace tarnlog {

GraphicFrameWidget::GraphicFrameWidget(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("FrGraphic"));
}

void GraphicFrameWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) controls_.restyle();
  QWidget::changeEvent(event);
}

}  // namespace tarnlog
