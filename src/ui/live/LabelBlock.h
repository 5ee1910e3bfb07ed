#pragma once

#include "ui/live/Placed.h"
#include "ui/live/TextLabel.h"

namespace tarnlog {

/// A label control of the live display. A caption label is as high as its caption, at least one line, until
/// it is told otherwise.
class LabelBlock : public Placed<LabelControl, TextLabel> {
 public:
  LabelBlock(TextLabel::Role role, QWidget* frame);

  void setCaption(std::string_view caption) override;
  void setToolTip(std::string_view text) override { shown().setToolTip(toQString(text)); }
  void setTextColour(Colour colour) override { shown().setTextColour(colour); }
  void setBackColour(Colour colour) override { shown().setBackColour(colour); }
  void setBorder(bool border) override { shown().setBorder(border); }
  /// Labels are flat: without a border, depth has nothing to show.
  void setThreeD(bool /*threeD*/) override {}
  /// They all are.
  void setLeftAligned() override {}
  void setFont(std::string_view family, int points, bool bold, bool italic) override;
  void bringToFront() override { shown().raise(); }

  void setFrozen(bool frozen) { shown().setFrozen(frozen); }
  void setOld(bool old) { shown().setOld(old && role_ == TextLabel::Role::Value); }
  void restyle() { shown().restyle(); }

 private:
  TextLabel::Role role_;
};

}  // namespace tarnlog
