#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/time/Clock.h"

namespace tarnlog {

/// Prints lines, and counts those that come again and again: of several equal lines within a few seconds the
/// first is printed, and the others as one, "LINE (37 times)", when another line comes or after a while. The
/// time of day that a log line begins with does not count. A failure often repeats as a round of several
/// lines, so a line is compared with the last few.
class RepeatedLines {
 public:
  using Print = std::function<void(std::string_view line)>;

  RepeatedLines(const Clock& clock, Print print) : clock_(clock), print_(std::move(print)) {}

  void add(std::string_view line);
  /// Tells what has been counted for long enough. To be called now and then.
  void tellOverdue();
  void tellAll();

 private:
  struct Seen {
    std::string text;  ///< without its time of day
    std::string last;
    Milliseconds printed;
    std::size_t counted = 0;  ///< since then
  };

  bool recent(const Seen& seen) const;
  void tell(Seen& seen);

  const Clock& clock_;
  Print print_;
  std::vector<Seen> seen_;  ///< in the order in which they came first
};

}  // namespace tarnlog
