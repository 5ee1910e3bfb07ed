#include "platform/time/RunLoop.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace tarnlog {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// Waits until the descriptor can be read from, or for the time, if any.
void waitUntil(std::optional<SteadyClock::time_point> time, int descriptor) {
  timespec wait{};
  if (time) {
    const auto left =
        std::chrono::duration_cast<std::chrono::nanoseconds>(*time - SteadyClock::now()).count();
    wait.tv_sec = std::max<long>(left, 0) / 1'000'000'000;
    wait.tv_nsec = std::max<long>(left, 0) % 1'000'000'000;
  }
  pollfd wake{descriptor, POLLIN, 0};
  ppoll(&wake, 1, time ? &wait : nullptr, nullptr);
}

}  // namespace

class RunLoop::LoopTimer : public Timer {
 public:
  explicit LoopTimer(RunLoop& loop) : loop_(loop) { loop_.timers_.push_back(this); }
  ~LoopTimer() override {
    std::replace(loop_.timers_.begin(), loop_.timers_.end(), this, static_cast<LoopTimer*>(nullptr));
  }
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;

  void setInterval(int milliseconds) override { interval_ = std::chrono::milliseconds(milliseconds); }
  void setEnabled(bool enabled) override {
    if (enabled && !enabled_) due_ = std::max(SteadyClock::now(), lastTick_ + interval_);
    enabled_ = enabled;
  }
  bool enabled() const override { return enabled_; }

  std::optional<SteadyClock::time_point> due() const { return enabled_ ? std::optional(due_) : std::nullopt; }

  void fireIfDue() {
    const auto now = SteadyClock::now();
    if (!enabled_ || now < due_) return;
    lastTick_ = now;
    due_ = now + interval_;
    tick();
  }

 private:
  RunLoop& loop_;
  std::chrono::milliseconds interval_{1};
  bool enabled_ = false;
  SteadyClock::time_point lastTick_{};
  SteadyClock::time_point due_{};
};

RunLoop::RunLoop() = default;
RunLoop::~RunLoop() = default;

std::unique_ptr<Timer> RunLoop::createTimer() { return std::make_unique<LoopTimer>(*this); }

/// Signals arrive at any time, also while a handler or a tick waits for a file or for the vehicle.
void RunLoop::run() {
  while (!quit_) {
    if (wakeHandler_) wakeHandler_();
    if (!quit_) waitUntil(nextTick(), wakeDescriptor_);
    if (!quit_) fireDueTimers();
    std::erase(timers_, nullptr);
  }
  quit_ = false;
}

std::optional<std::chrono::steady_clock::time_point> RunLoop::nextTick() const {
  std::optional<SteadyClock::time_point> next;
  for (const LoopTimer* timer : timers_)
    if (timer != nullptr && timer->due() && (!next || *timer->due() < *next)) next = timer->due();
  return next;
}

void RunLoop::fireDueTimers() {
  for (std::size_t i = 0; i < timers_.size() && !quit_; ++i)
    if (timers_[i] != nullptr) timers_[i]->fireIfDue();
}

}  // namespace tarnlog
