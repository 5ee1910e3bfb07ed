#pragma once

#include "platform/controls/CWSlide.h"
#include "ui/live/Placed.h"

namespace tarnlog {

/// A bar of the live display.
class SlideBlock : public Placed<SlideControl, CWSlide> {
 public:
  explicit SlideBlock(QWidget* frame);

  void setTitle(std::string_view title) override { shown().setTitle(toQString(title)); }
  void setAxisRange(double minimum, double maximum) override { shown().setAxisRange(minimum, maximum); }
  double axisMinimum() const override { return shown().minimum(); }
  double axisMaximum() const override { return shown().maximum(); }
  void setValue(double value) override { shown().setValue(value); }
  double pointerValue(int pointer) const override { return shown().pointerValue(pointer); }
  void setPointerValue(int pointer, double value) override { shown().setPointerValue(pointer, value); }
  void setPointerFillColour(int pointer, Colour colour) override;
  void setPointerColour(int pointer, Colour colour) override;

  void setFrozen(bool frozen) { shown().setFrozen(frozen); }
  void setOld(bool old) { shown().setFaded(old); }
  /// The font of the desktop has changed.
  void restyle();

 private:
  Colour fill_ = kButtonFace;
};

}  // namespace tarnlog
