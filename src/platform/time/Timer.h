#pragma once

#include <functional>
#include <utility>

namespace tarnlog {

/// A periodic timer that calls back on the caller's own thread. Disabled at construction.
/// A tick is due one interval after the tick before it, so a tick that took longer than the interval is
/// followed at once.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void setInterval(int milliseconds) = 0;
  virtual void setEnabled(bool enabled) = 0;
  virtual bool enabled() const = 0;

  void setTickHandler(std::function<void()> handler) { handler_ = std::move(handler); }

 protected:
  void tick() const {
    if (handler_) handler_();
  }

 private:
  std::function<void()> handler_;
};

}  // namespace tarnlog
