#include "platform/controls/PaintBeat.h"

#include <QScreen>
#include <algorithm>
#include <cmath>

#include "platform/controls/PaintPacer.h"

namespace tarnlog {
namespace {

constexpr int kRest = 60;           ///< pictures; a slow poll does not start and stop the timer each time
constexpr int kBetweenTexts = 100;  ///< ms
constexpr int kMostPictures = 1000;

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
  (pacer->pace_ == PaintPacer::Pace::Texts ? texts_ : pictures_).push_back(pacer);
  if (timer_.isActive()) return;
  timer_.start(interval(*static_cast<QScreen*>(parent())), Qt::PreciseTimer, this);
  idle_ = 0;
  sinceTexts_ = kMostPictures;
  paint();
}

void PaintBeat::forget(PaintPacer* pacer) {
  std::erase(pictures_, pacer);
  std::erase(texts_, pacer);
}

void PaintBeat::timerEvent(QTimerEvent* /*event*/) {
  idle_ = pictures_.empty() && texts_.empty() ? idle_ + 1 : 0;
  if (idle_ > kRest) timer_.stop();
  sinceTexts_ = std::min(sinceTexts_ + 1, kMostPictures);
  paint();
}

void PaintBeat::paint() {
  paintAll(pictures_);
  if (texts_.empty() || sinceTexts_ * interval(*static_cast<QScreen*>(parent())) < kBetweenTexts) return;
  paintAll(texts_);
  sinceTexts_ = 0;
}

void PaintBeat::paintAll(std::vector<PaintPacer*>& due) {
  for (PaintPacer* const pacer : due) pacer->paint();
  due.clear();
}

}  // namespace tarnlog
