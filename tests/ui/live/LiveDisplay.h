#pragma once

#include "tests/display/DisplayFixture.h"
#include "tests/support/SteppedClock.h"
#include "tests/support/WidgetText.h"
#include "ui/live/GraphicFrameWidget.h"

namespace tarnlog::test {

/// A live display on the real frame, which stands in a window as it does in a scroll area.
struct LiveDisplay : Display {
  explicit LiveDisplay(QSize size = {600, 200}) {
    window.resize(size);
    widget.resize(size);
    widget.setClock(&clock);
  }
  ~LiveDisplay() { scope.ClearDisplay(widget.controls()); }

  Twips buildLive() {
    Twips extra = 0;
    scope.BuildDisplay(widget.controls(), 40 * kTwipsPerPixel, extra);
    if (extra > 0) widget.controls().setHeight(widget.controls().height() + extra);
    window.show();
    return extra;
  }
  Twips arrangeLive(QSize size) {
    window.resize(size);
    widget.resize(size);
    Twips extra = 0;
    scope.ArrangeDisplay(widget.controls(), 40 * kTwipsPerPixel, extra);
    return extra;
  }
  /// A polling cycle in which every number has this value.
  void feed(double value) {
    speed.setValue(value);
    load.setValue(value);
    refresh();
  }
  void refresh() {
    clock.step(50);
    scope.RefreshDisplay();
  }
  template <class Kind = QWidget>
  Kind& find(const std::string& name) {
    return childOf<Kind>(widget, name.c_str());
  }
  std::string text(const char* label) { return find<TextLabel>(label).text().toStdString(); }

  SteppedClock clock;
  QWidget window;
  GraphicFrameWidget widget{&window};
};

}  // namespace tarnlog::test
