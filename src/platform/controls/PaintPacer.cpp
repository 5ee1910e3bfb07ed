#include "platform/controls/PaintPacer.h"

#include <QScreen>
#include <QTimerEvent>
#include <QWidget>
#include <algorithm>

namespace tarnlog {

void PaintPacer::request(const QRect& area) {
  due_ += area;
  if (timer_.isActive()) return;
  const qreal rate = widget_->screen() ? std::max(widget_->screen()->refreshRate(), 1.0) : 60.0;
  const auto interval = static_cast<qint64>(1000.0 / rate);
  const qint64 passed = last_.isValid() ? last_.elapsed() : interval;
  if (passed >= interval) return flush();
  timer_.start(static_cast<int>(interval - passed), Qt::PreciseTimer, this);
}

void PaintPacer::timerEvent(QTimerEvent* event) {
  if (event->timerId() == timer_.timerId()) flush();
}

void PaintPacer::flush() {
  timer_.stop();
  last_.start();
  widget_->update(due_);
  due_ = QRegion();
}

}  // namespace tarnlog
