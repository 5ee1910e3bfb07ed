#include "ui/acquisition/ElidedLabel.h"

#include <QPainter>

namespace tarnlog {

void ElidedLabel::showText(const QString& text) {
  setText(text);
  setToolTip(text);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect area = contentsRect();
  painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width()));
}

}  // namespace tarnlog
