#include "platform/controls/CWButton.h"

#include <QStyleOptionButton>

namespace tarnlog {

CWButton::CWButton(QWidget* parent) : QPushButton(parent) { setCheckable(true); }

void CWButton::setPictures(const QIcon& off, const QIcon& on) {
  on_ = on;
  setIcon(off);
}

/// Here and not when it is toggled: a change whose signal is blocked must be seen too.
void CWButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  if (isChecked() && !on_.isNull()) option->icon = on_;
}

}  // namespace tarnlog
