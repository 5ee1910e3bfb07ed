#include "platform/controls/CWButton.h"

#include <QIcon>

namespace tarnlog {

CWButton::CWButton(QWidget* parent) : QPushButton(parent) { setCheckable(true); }

void CWButton::setPictures(const QPixmap& off, const QPixmap& on) {
  QIcon icon;
  icon.addPixmap(off, QIcon::Normal, QIcon::Off);
  icon.addPixmap(on, QIcon::Normal, QIcon::On);
  setIcon(icon);
  setIconSize(off.deviceIndependentSize().toSize().expandedTo(on.deviceIndependentSize().toSize()));
}

}  // namespace tarnlog
