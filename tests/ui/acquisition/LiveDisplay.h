#pragma once

#include <cmath>

#include "tests/display/DisplayFixture.h"
#include "tests/support/SteppedClock.h"
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
  void refresh() {
    clock.step(50);
    scope.RefreshDisplay();
  }
  template <class Kind = QWidget>
  Kind* find(const char* name) {
    return widget.findChild<Kind*>(QLatin1String(name));
  }

  SteppedClock clock;
  QWidget window;
  GraphicFrameWidget widget{&window};
};

}  // namespace tarnlog::test
