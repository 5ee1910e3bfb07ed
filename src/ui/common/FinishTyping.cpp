#include "ui/common/FinishTyping.h"

#include <QAbstractSpinBox>
#include <QGuiApplication>
#include <QInputMethod>
#include <QLineEdit>

namespace tarnlog {

void finishTyping(const QWidget& within) {
  QGuiApplication::inputMethod()->commit();  // characters that are being composed
  QWidget* const typed = within.focusWidget();
  if (auto* const number = qobject_cast<QAbstractSpinBox*>(typed)) {
    number->interpretText();
    emit number->editingFinished();
  } else if (auto* const line = qobject_cast<QLineEdit*>(typed)) {
    emit line->editingFinished();
  }
}

}  // namespace tarnlog
