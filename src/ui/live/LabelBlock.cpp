#include "ui/live/LabelBlock.h"

#include "ui/live/LabelStyle.h"

namespace tarnlog {
namespace {

constexpr Twips kUsualWidth = 1800;

}  // namespace

LabelBlock::LabelBlock(TextLabel::Role role, QWidget* frame)
    : Placed(std::make_unique<TextLabel>(role, frame)), role_(role) {
  setWidth(kUsualWidth);
  setHeight(toTwips(shown().naturalHeight(shown().width())));
}

void LabelBlock::setCaption(std::string_view caption) {
  shown().setText(caption);
  if (role_ == TextLabel::Role::Caption) setHeight(toTwips(shown().naturalHeight(shown().width())));
}

void LabelBlock::setFont(std::string_view family, int points, bool bold, bool italic) {
  shown().setLabelFont(screenFont(shown().parentWidget()->font(), family, points, bold, italic));
}

}  // namespace tarnlog
