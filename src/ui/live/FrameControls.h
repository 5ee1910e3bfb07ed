#pragma once

#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

#include "platform/screen/Controls.h"
#include "ui/live/ControlArray.h"
#include "ui/live/GraphBlock.h"
#include "ui/live/LabelBlock.h"
#include "ui/live/SlideBlock.h"

namespace tarnlog {

/// The controls on a surface, as the live display makes and frees them. Their widgets are named after their
/// array and number: GT1, SL1, etiquette1, VT1.
class FrameControls : public GraphicFrame {
 public:
  explicit FrameControls(QWidget& surface);

  Twips left() const override { return toTwips(surface_.x()); }
  Twips top() const override { return toTwips(surface_.y()); }
  Twips width() const override { return toTwips(surface_.width()); }
  Twips height() const override { return toTwips(surface_.height()); }
  void setLeft(Twips left) override { surface_.move(toPixels(left), surface_.y()); }
  void setTop(Twips top) override { surface_.move(surface_.x(), toPixels(top)); }
  void setWidth(Twips width) override { surface_.resize(toPixels(width), surface_.height()); }
  void setHeight(Twips height) override { surface_.resize(surface_.width(), toPixels(height)); }
  void setVisible(bool visible) override { surface_.setVisible(visible); }

  GraphControl* LoadGraph(std::int16_t index) override;
  void UnloadGraph(GraphControl* control) override { unloaded(graphs_.unload(control)); }
  SlideControl* LoadSlide(std::int16_t index) override;
  void UnloadSlide(SlideControl* control) override { unloaded(slides_.unload(control)); }
  LabelControl* LoadCaption(std::int16_t index) override;
  void UnloadCaption(LabelControl* control) override { unloaded(captions_.unload(control)); }
  LabelControl* LoadValueText(std::int16_t index) override;
  void UnloadValueText(LabelControl* control) override { unloaded(values_.unload(control)); }

  void setClock(const Clock* clock) { cycles_.setClock(clock); }
  /// Called with each graph that was made, and when the last control has gone.
  void setGraphMade(std::function<void(GraphBlock&)> made) { graphMade_ = std::move(made); }
  void setEmptied(std::function<void()> emptied) { emptied_ = std::move(emptied); }

  bool empty() const;
  /// In the order of their numbers.
  std::vector<GraphBlock*> graphs() const;
  void setFrozen(bool frozen);
  void setOld(bool old);
  /// The font of the desktop has changed.
  void restyle();

 private:
  template <class Action>
  void each(Action action) const;
  void unloaded(std::int16_t index);
  void linkLabels(std::int16_t index);

  QWidget& surface_;
  ChartCycles cycles_;
  std::function<void(GraphBlock&)> graphMade_;
  std::function<void()> emptied_;
  ControlArray<GraphBlock> graphs_;
  ControlArray<SlideBlock> slides_;
  ControlArray<LabelBlock> captions_;
  ControlArray<LabelBlock> values_;
};

}  // namespace tarnlog
