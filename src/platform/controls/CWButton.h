#pragma once

#include <QPixmap>
#include <QPushButton>

namespace tarnlog {

/// A button that stays pressed, with a picture for each state. Space toggles it.
class CWButton : public QPushButton {
  Q_OBJECT
  Q_PROPERTY(bool value READ isChecked WRITE setChecked)

 public:
  explicit CWButton(QWidget* parent = nullptr);
  void setPictures(const QPixmap& off, const QPixmap& on);
};

}  // namespace tarnlog
