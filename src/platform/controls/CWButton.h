#pragma once

#include <QIcon>
#include <QPushButton>

namespace tarnlog {

/// A button that stays pressed, with a picture for each state. Space toggles it. Give it an accessible name:
/// it has no text, and assistive technology reads its state but cannot read pictures.
class CWButton : public QPushButton {
  Q_OBJECT
  Q_PROPERTY(bool value READ isChecked WRITE setChecked)

 public:
  explicit CWButton(QWidget* parent = nullptr);
  /// Shown in `iconSize`, sharp on any screen where the icons have the pixels for it.
  void setPictures(const QIcon& off, const QIcon& on);

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  QIcon on_;
};

}  // namespace tarnlog
