#include "ui/common/ElidedLabel.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace tarnlog {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect room = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
  const auto side = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()).toInt());
  style()->drawItemText(&painter, room, side, palette(), isEnabled(), shown, foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip)
    setToolTip(fontMetrics().horizontalAdvance(text()) > contentsRect().width() ? text() : QString());
  return QLabel::event(event);
}

}  // namespace tarnlog
