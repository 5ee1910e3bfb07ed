#pragma once

#include <QPushButton>
#include <QStyleOptionButton>

namespace tarnlog {

/// A button that can be drawn as one that does nothing now, and still takes focus and presses: there is an
/// answer to them.
class GreyableButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  void setGreyed(bool greyed) {
    greyed_ = greyed;
    update();
  }
  bool greyed() const { return greyed_; }

 protected:
  void initStyleOption(QStyleOptionButton* option) const override {
    QPushButton::initStyleOption(option);
    if (!greyed_) return;
    option->state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver);
    option->palette.setCurrentColorGroup(QPalette::Disabled);
  }

 private:
  bool greyed_ = false;
};

}  // namespace tarnlog
