#include "platform/time/RunLoop.h"

#include <poll.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace tarnlog {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// Keeps back the signals that ask a program to stop or to do something. Raised meanwhile, they arrive in a
/// wait that is given `before`, or at the end.
class SignalsKeptBack {
 public:
  SignalsKeptBack() {
    sigset_t keptBack;
    sigemptyset(&keptBack);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM, SIGUSR1, SIGUSR2}) sigaddset(&keptBack, signal);
    pthread_sigmask(SIG_BLOCK, &keptBack, &before_);
  }
  ~SignalsKeptBack() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsKeptBack(const SignalsKeptBack&) = delete;
  SignalsKeptBack& operator=(const SignalsKeptBack&) = delete;
  const sigset_t& before() const { return before_; }

 private:
  sigset_t before_{};
};

/// Waits for a signal that the mask lets in, or for the time, if any.
void waitUntil(std::optional<SteadyClock::time_point> time, const sigset_t& mask) {
  timespec wait{};
  if (time) {
    const auto left =
        std::chrono::duration_cast<std::chrono::nanoseconds>(*time - SteadyClock::now()).count();
    wait.tv_sec = std::max<long>(left, 0) / 1'000'000'000;
    wait.tv_nsec = std::max<long>(left, 0) % 1'000'000'000;
  }
  ppoll(nullptr, 0, time ? &wait : nullptr, &mask);
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

/// The wake handler looks at the flags that signal handlers set. Between that look and the wait, signals are
/// kept back; the wait itself lets them in, so none is missed. During a tick they arrive as ever, so that
/// whoever waits for the vehicle can see them.
void RunLoop::run() {
  while (!quit_) {
    {
      const SignalsKeptBack signals;
      if (wakeHandler_) wakeHandler_();
      if (!quit_) waitUntil(nextTick(), signals.before());
    }
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
