#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "platform/time/Clock.h"

namespace tarnlog {

/// The cycles of a live display: in each of them, every time chart gets one point. Points of one number came
/// in one cycle, whatever chart they are of, and have one moment.
class ChartCycles {
 public:
  /// Without a clock, moments are not known.
  void setClock(const Clock* clock) { clock_ = clock; }
  const Clock* clock() const { return clock_; }
  /// Called when a cycle is over, before the next one.
  void setEnded(std::function<void()> ended) { ended_ = std::move(ended); }

  bool running() const { return running_; }
  /// The first point of another cycle comes.
  void begin();
  /// The charts have gone: the next cycle is the first one of others.
  void stop() { running_ = false; }

  /// When the cycle began, in milliseconds. The clock's begin again after 49 days; these do not.
  double moment() const { return moment_; }
  /// Milliseconds since then.
  double age() const;
  /// The time of day has gone on as the milliseconds have since the first cycle; a clock that was set would
  /// give earlier points a wrong time.
  bool wallClockAgrees() const;

 private:
  const Clock* clock_ = nullptr;
  std::function<void()> ended_;
  bool running_ = false;
  std::optional<Milliseconds> began_;
  double moment_ = 0;
  LocalDateTime firstDate_;
  double firstMoment_ = 0;
};

}  // namespace tarnlog
