#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/time/Timer.h"

namespace tarnlog {

/// A loop for programs without a window: waits for its timers and for signals, one thread, no spinning.
class RunLoop {
 public:
  RunLoop();
  ~RunLoop();
  RunLoop(const RunLoop&) = delete;
  RunLoop& operator=(const RunLoop&) = delete;

  /// A timer that ticks while `run` runs; it must not outlive the loop.
  std::unique_ptr<Timer> createTimer();

  /// Called before every wait, that is after every tick and every signal.
  void setWakeHandler(std::function<void()> handler) { wakeHandler_ = std::move(handler); }

  /// A descriptor that ends the wait as long as it can be read from, such as a pipe that signal handlers
  /// write to: so no signal is missed that comes between the wake handler's look at its flags and the wait.
  /// The wake handler reads it empty.
  void setWakeDescriptor(int descriptor) { wakeDescriptor_ = descriptor; }

  /// Runs until `quit`; a `quit` before it ends it at once.
  void run();
  void quit() { quit_ = true; }

 private:
  class LoopTimer;

  std::optional<std::chrono::steady_clock::time_point> nextTick() const;
  void fireDueTimers();

  std::vector<LoopTimer*> timers_;
  std::function<void()> wakeHandler_;
  int wakeDescriptor_ = -1;
  bool quit_ = false;
};

}  // namespace tarnlog
