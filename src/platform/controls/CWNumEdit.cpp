#include "platform/controls/CWNumEdit.h"

#include <QKeyEvent>
#include <algorithm>

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
  if (!isReadOnly()) moveBy(up ? fastStep_ : -fastStep_);
}

void CWNumEdit::setStepRange(double lowest, double highest) {
  lowestStep_ = lowest;
  highestStep_ = highest;
}

void CWNumEdit::stepBy(int steps) { moveBy(steps * singleStep()); }

void CWNumEdit::moveBy(double difference) {
  interpretText();
  const bool inside = value() >= lowestStep_ && value() <= highestStep_;
  const double moved = value() + difference;
  setValue(inside ? std::clamp(moved, lowestStep_, highestStep_) : moved);
  selectAll();
}

}  // namespace tarnlog
