#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/TarnError.h"

namespace tarnlog::test {

/// Whether a scripted operation fails: the next times, always, or not at all.
class Failing {
 public:
  void next(std::string description, int times = 1) {
    description_ = std::move(description);
    times_ = times;
  }
  void always(std::string description) { next(std::move(description), -1); }
  void never() { times_ = 0; }

  /// Raises when a failure is due.
  void check() {
    if (times_ == 0) return;
    if (times_ > 0) --times_;
    throw TarnError(1, "Scripted", description_);
  }

 private:
  std::string description_;
  int times_ = 0;
};

/// What all objects of one scripted session share.
struct Script {
  /// Every call that reaches the vehicle or ends something, in order: "init Engine", "send Engine Status",
  /// "session Engine A0", "exchange Engine 10 C0", "finish poll set", "finish list", "end communication".
  std::vector<std::string> calls;
  /// Runs inside every call that waits for the vehicle, as the host's idle hook does.
  std::function<void()> whileWaiting;
  std::function<void()> whileListing;  ///< the same, where an acquisition list or a poll set is made
  bool communicating = false;

  void call(const std::string& what) {
    calls.push_back(what);
    const bool before = std::exchange(communicating, true);
    if (whileWaiting) whileWaiting();
    communicating = before;
  }
};

}  // namespace tarnlog::test
