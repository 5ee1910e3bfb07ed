#include "ui/scope/ColourBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include "platform/controls/Readable.h"

namespace tarnlog {

ColourBox::ColourBox(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

void ColourBox::setColour(const QColor& colour) {
  colour_ = colour;
  setAccessibleDescription(colour.name());
  update();
}

QSize ColourBox::sizeHint() const {
  const int height = fontMetrics().height() + 8;
  return {2 * height, height};
}

void ColourBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor text = palette().color(QPalette::WindowText);
  painter.setPen(underMouse() || isDown() ? text : blend(palette().color(QPalette::Window), text, 0.45F));
  painter.setBrush(isEnabled() ? colour_ : palette().color(QPalette::Window));
  painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), 3, 3);
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

/// Return opens the dialog too; a held key does so once.
void ColourBox::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return QAbstractButton::keyPressEvent(event);
  if (!event->isAutoRepeat()) click();
}

}  // namespace tarnlog
