#pragma once

#include <functional>
#include <string>
#include <utility>

#include "acquisition/AcqScreen.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// The time-stamped log. The screen keeps its first line and the newest 20; whoever listens gets every line.
class AcqLog {
 public:
  using LogAdded = std::function<void(const std::string& line)>;

  AcqLog(AcqScreen& screen, const Clock& clock) : screen_(screen), clock_(clock) {}

  void clear();
  void add(const std::string& text);
  void setLogAdded(LogAdded handler) { logAdded_ = std::move(handler); }

 private:
  static constexpr int kMostLinesBeforeAdding = 20;

  AcqScreen& screen_;
  const Clock& clock_;
  LogAdded logAdded_;
  int lines_ = 0;
};

}  // namespace tarnlog
