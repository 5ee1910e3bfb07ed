#include "ui/live/SlideBlock.h"

#include "ui/live/LabelStyle.h"

namespace tarnlog {

SlideBlock::SlideBlock(QWidget* frame) : Placed(std::make_unique<CWSlide>(frame)) { restyle(); }

void SlideBlock::setPointerFillColour(int pointer, Colour colour) {
  if (pointer == kValue) fill_ = colour;
  shown().setPointerFillColour(pointer, toQColor(colour, shown().palette()));
}

void SlideBlock::setPointerColour(int pointer, Colour colour) {
  const bool palette = colour == kButtonFace;
  shown().setPointerColour(pointer, palette ? QColor() : toQColor(colour, shown().palette()));
}

void SlideBlock::restyle() {
  shown().setFont(fittedFont(shown().parentWidget()->font(), kLineHeight));
  setPointerFillColour(kValue, fill_);
}

}  // namespace tarnlog
