#include "ui/main/WhenIdle.h"

#include <utility>

namespace tarnlog {

namespace {

/// As often as the acquisition's timer: later, each next tick would begin before this looks, and in an outage
/// there is no moment without a request but the one between two ticks.
constexpr int kLookAgain = 1;  // ms

}  // namespace

WhenIdle::WhenIdle(std::function<bool()> busy, QObject* parent) : QObject(parent), busy_(std::move(busy)) {}

void WhenIdle::run(std::function<void()> action) {
  waiting_ = nullptr;
  if (!busy_()) return action();
  waiting_ = std::move(action);
  if (timer_ == 0) timer_ = startTimer(kLookAgain);
}

void WhenIdle::timerEvent(QTimerEvent* /*event*/) {
  if (waiting_ && busy_()) return;
  killTimer(std::exchange(timer_, 0));
  if (const auto action = std::exchange(waiting_, nullptr)) action();
}

}  // namespace tarnlog
