#pragma once

#include <QPushButton>

namespace tarnlog {

/// A button that can be drawn as one that does nothing now, and still takes focus and presses: there is an
/// answer to them.
class GreyableButton : public QPushButton {
 public:
  using QPushButton::QPushButton;
  void setGreyed(bool greyed);
  bool greyed() const { return greyed_; }
  /// A number at the right edge, beside the caption; 0 for none.
  void setCount(int count);
  int count() const { return count_; }

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool greyed_ = false;
  int count_ = 0;
};

}  // namespace tarnlog
