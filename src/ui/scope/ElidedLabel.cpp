#include "ui/scope/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tarnlog {

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect room = contentsRect();
  painter.drawText(room, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool cut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? text() : QString(), this);
  return true;
}

}  // namespace tarnlog
