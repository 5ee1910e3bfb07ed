#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/common/NonWaitingStream.h"

namespace tarnlog::record {

/// Lines at the lower end of a terminal, which are drawn anew in place. What else is printed there stands
/// above them: they are erased before. The terminal is never waited for.
class LiveScreen {
 public:
  struct Size {
    std::size_t width = 80;
    std::size_t height = 24;
  };

  /// The descriptor stays the caller's.
  explicit LiveScreen(int descriptor) : descriptor_(descriptor), out_(descriptor) {}

  Size size() const;
  /// Whether what was drawn is on the screen: one that is stopped gets nothing that would be old when it goes
  /// on.
  bool ready();
  /// No line is longer than the terminal's width less one: one that wraps could not be erased.
  void draw(const std::vector<std::string>& lines);
  void erase();

 private:
  std::string toTop() const;

  int descriptor_;
  NonWaitingStream out_;
  std::vector<std::size_t> drawn_;  ///< characters of each line that stands there
};

}  // namespace tarnlog::record
