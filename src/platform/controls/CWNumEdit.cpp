#include "platform/controls/CWNumEdit.h"

#include <QKeyEvent>

namespace tarnlog {

CWNumEdit::CWNumEdit(QWidget* parent) : QDoubleSpinBox(parent) {
  setDecimals(6);
  setRange(-1e9, 1e9);
  setKeyboardTracking(false);
}

QString CWNumEdit::textFromValue(double value) const {
  QString text = QDoubleSpinBox::textFromValue(value);
  const QString point = locale().decimalPoint();
  const QString zero = locale().zeroDigit();
  if (!text.contains(point)) return text;
  while (text.endsWith(zero)) text.chop(zero.size());
  if (text.endsWith(point)) text.chop(point.size());
  return text;
}

void CWNumEdit::keyPressEvent(QKeyEvent* event) {
  const bool up = event->key() == Qt::Key_PageUp;
  if (!up && event->key() != Qt::Key_PageDown) return QDoubleSpinBox::keyPressEvent(event);
  if (isReadOnly()) return;
  interpretText();
  setValue(value() + (up ? fastStep_ : -fastStep_));
  selectAll();
}

}  // namespace tarnlog
