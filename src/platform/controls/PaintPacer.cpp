#include "platform/controls/PaintPacer.h"

#include <QScreen>
#include <QWidget>
#include <utility>

#include "platform/controls/PaintBeat.h"

namespace tarnlog {

PaintPacer::~PaintPacer() {
  if (beat_) beat_->forget(this);
}

void PaintPacer::request(const QRect& area) {
  const bool waiting = beat_ && !due_.isEmpty();
  due_ |= area;
  if (waiting || due_.isEmpty()) return;
  if (!beat_ || beat_->parent() != widget_->screen()) beat_ = PaintBeat::of(widget_->screen());
  if (beat_)
    beat_->add(this);
  else
    paint();
}

void PaintPacer::paint() { widget_->update(std::exchange(due_, QRect())); }

}  // namespace tarnlog
