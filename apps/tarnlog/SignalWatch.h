#pragma once

#include <QSocketNotifier>
#include <functional>

namespace tarnlog {

/// Brings the signals of this process (see `Signals`, to be installed before) into the toolkit's loop.
class SignalWatch {
 public:
  SignalWatch(std::function<void()> stop, std::function<void()> event);

 private:
  void look();

  std::function<void()> stop_;
  std::function<void()> event_;
  QSocketNotifier notifier_;
};

}  // namespace tarnlog
