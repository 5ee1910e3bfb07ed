#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

#include "platform/time/Timer.h"

namespace tarnlog {

/// A timer that ticks from the toolkit's event loop. A tick may let events run: no other tick comes before it
/// has returned. A tick that is due at once still lets events that wait go first, so that a window stays
/// usable however slow its ticks are.
class QtTimer : public QObject, public Timer {
 public:
  void setInterval(int milliseconds) override;
  void setEnabled(bool enabled) override;
  bool enabled() const override { return enabled_; }

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void schedule();

  QBasicTimer timer_;
  QElapsedTimer sinceTick_;
  int interval_ = 1;
  bool enabled_ = false;
  bool ticking_ = false;
};

}  // namespace tarnlog
