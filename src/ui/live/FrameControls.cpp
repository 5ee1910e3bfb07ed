#include "ui/live/FrameControls.h"

namespace tarnlog {
namespace {

template <class Made>
std::unique_ptr<Made> named(std::unique_ptr<Made> made, const char* array, std::int16_t index) {
  made->shown().setObjectName(QLatin1String(array) + QString::number(index));
  return made;
}

TextLabel* labelOf(LabelBlock* block) { return block == nullptr ? nullptr : &block->shown(); }

}  // namespace

FrameControls::FrameControls(QWidget& surface) : surface_(surface) {
  cycles_.setEnded([this] { graphs_.each([](GraphBlock& block) { block.endCycle(); }); });
}

GraphControl* FrameControls::LoadGraph(std::int16_t index) {
  return graphs_.load(index, [&] {
    auto made = named(std::make_unique<GraphBlock>(&surface_, cycles_), "GT", index);
    if (graphMade_) graphMade_(*made);
    return made;
  });
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

/// Labels of one number belong together and must know where the other stands.
void FrameControls::linkLabels(std::int16_t index) {
  TextLabel* const caption = labelOf(captions_.find(index));
  TextLabel* const value = labelOf(values_.find(index));
  if (caption != nullptr) caption->setPartner(value);
  if (value != nullptr) value->setPartner(caption);
}

void FrameControls::unloaded(std::int16_t index) {
  if (index == 0) return;
  linkLabels(index);
  if (!empty()) return;
  cycles_.stop();
  if (emptied_) emptied_();
}

bool FrameControls::empty() const {
  return graphs_.empty() && slides_.empty() && captions_.empty() && values_.empty();
}

std::vector<GraphBlock*> FrameControls::graphs() const {
  std::vector<GraphBlock*> graphs;
  graphs_.each([&](GraphBlock& block) { graphs.push_back(&block); });
  return graphs;
}

template <class Action>
void FrameControls::each(Action action) const {
  graphs_.each(action);
  slides_.each(action);
  captions_.each(action);
  values_.each(action);
}

void FrameControls::setFrozen(bool frozen) {
  each([frozen](auto& block) { block.setFrozen(frozen); });
}

void FrameControls::setOld(bool old) {
  each([old](auto& block) { block.setOld(old); });
}

void FrameControls::restyle() {
  each([](auto& block) { block.restyle(); });
}

}  // namespace tarnlog
