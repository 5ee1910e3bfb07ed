#include "ui/acquisition/FrameControls.h"

namespace tarnlog {
namespace {

template <class Made>
std::unique_ptr<Made> named(std::unique_ptr<Made> made, const char* array, std::int16_t index) {
  made->shown().setObjectName(QLatin1String(array) + QString::number(index));
  return made;
}

TextLabel* labelOf(LabelBlock* block) { return block == nullptr ? nullptr : &block->shown(); }

}  // namespace

GraphControl* FrameControls::LoadGraph(std::int16_t index) {
  return graphs_.load(index, [&] { return named(std::make_unique<GraphBlock>(&surface_), "GT", index); });
}

SlideControl* FrameControls::LoadSlide(std::int16_t index) {
  return slides_.load(index, [&] { return named(std::make_unique<SlideBlock>(&surface_), "SL", index); });
}

LabelControl* FrameControls::LoadCaption(std::int16_t index) {
  LabelBlock* const label = captions_.load(index, [&] {
    return named(std::make_unique<LabelBlock>(TextLabel::Role::Caption, &surface_), "etiquette", index);
  });
  linkLabels(index);
  return label;
}

LabelControl* FrameControls::LoadValueText(std::int16_t index) {
  LabelBlock* const label = values_.load(index, [&] {
    return named(std::make_unique<LabelBlock>(TextLabel::Role::Value, &surface_), "VT", index);
  });
  linkLabels(index);
  return label;
}

/// Labels of one number belong together and must know where the others stand.
void FrameControls::linkLabels(std::int16_t index) {
  TextLabel* const caption = labelOf(captions_.find(index));
  TextLabel* const value = labelOf(values_.find(index));
  if (caption != nullptr) caption->setPartner(value);
  if (value != nullptr) {
    value->setPartner(caption);
    value->setAbove(labelOf(values_.find(static_cast<std::int16_t>(index - 1))));
  }
  TextLabel* const next = labelOf(values_.find(static_cast<std::int16_t>(index + 1)));
  if (next != nullptr) next->setAbove(value);
}

void FrameControls::restyle() {
  const auto each = [](auto& block) { block.restyle(); };
  graphs_.each(each);
  slides_.each(each);
  captions_.each(each);
  values_.each(each);
}

}  // namespace tarnlog
