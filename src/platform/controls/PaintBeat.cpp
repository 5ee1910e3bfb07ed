#include "platform/controls/PaintBeat.h"

#include <QScreen>
#include <algorithm>
#include <cmath>

#include "platform/controls/PaintPacer.h"

namespace tarnlog {
namespace {

constexpr int kRest = 60;  ///< pictures; a slow poll does not start and stop the timer each time

int interval(const QScreen& screen) {
  return static_cast<int>(std::ceil(1000.0 / std::max(screen.refreshRate(), 1.0)));
}

}  // namespace

PaintBeat::PaintBeat(QScreen* screen) : QObject(screen) {}

PaintBeat* PaintBeat::of(QScreen* screen) {
  if (screen == nullptr) return nullptr;
  auto* const found = screen->findChild<PaintBeat*>(QString(), Qt::FindDirectChildrenOnly);
  return found != nullptr ? found : new PaintBeat(screen);
}

void PaintBeat::add(PaintPacer* pacer) {
  due_.push_back(pacer);
  if (timer_.isActive()) return;
  timer_.start(interval(*static_cast<QScreen*>(parent())), Qt::PreciseTimer, this);
  paintAll();
}

void PaintBeat::forget(PaintPacer* pacer) { std::erase(due_, pacer); }

void PaintBeat::timerEvent(QTimerEvent* /*event*/) {
  idle_ = due_.empty() ? idle_ + 1 : 0;
  if (idle_ > kRest) timer_.stop();
  paintAll();
}

void PaintBeat::paintAll() {
  for (PaintPacer* const pacer : due_) pacer->paint();
  due_.clear();
}

}  // namespace tarnlog
