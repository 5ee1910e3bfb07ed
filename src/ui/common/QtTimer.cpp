#include "ui/common/QtTimer.h"

#include <QTimerEvent>
#include <algorithm>

#include "platform/base/TarnError.h"

namespace tarnlog {

void QtTimer::setInterval(int milliseconds) {
  interval_ = milliseconds;
  if (enabled_ && !ticking_) schedule();
}

void QtTimer::setEnabled(bool enabled) {
  const bool starts = enabled && !enabled_;
  enabled_ = enabled;
  if (!enabled)
    timer_.stop();
  else if (starts && !ticking_)
    schedule();
}

void QtTimer::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) return QObject::timerEvent(event);
  timer_.stop();
  sinceTick_.start();
  ticking_ = true;
  // Nothing may be thrown through the event loop.
  skipOnFailure([this] { tick(); });
  ticking_ = false;
  if (enabled_) schedule();
}

void QtTimer::schedule() {
  const qint64 passed = sinceTick_.isValid() ? sinceTick_.elapsed() : 0;
  timer_.start(static_cast<int>(std::max<qint64>(interval_ - passed, 0)), Qt::PreciseTimer, this);
}

}  // namespace tarnlog
