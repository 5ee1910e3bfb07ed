#pragma once

#include <chrono>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tarnlog {

/// A standard stream of this process that is never waited for: a stopped terminal or a pipe that nobody reads
/// must not hold a recording up. What cannot be written at once is kept, in order, up to a bound; lines
/// beyond it are dropped, and how many is told when the reader goes on. A reader that is gone gets nothing
/// more.
class NonWaitingStream {
 public:
  static constexpr std::size_t kNoBound = std::numeric_limits<std::size_t>::max();

  /// `descriptor` stays the caller's; its flags, which the shell may share, are left as they are.
  explicit NonWaitingStream(int descriptor, std::size_t bound = 65536);
  ~NonWaitingStream();
  NonWaitingStream(const NonWaitingStream&) = delete;
  NonWaitingStream& operator=(const NonWaitingStream&) = delete;

  /// One line with its end, or a piece of one.
  void write(std::string_view text);
  /// One or several lines, all of them or, when there is no room for them now, none: false.
  bool offer(std::string_view lines);
  /// Writes of what is kept what can be written at once. To be called now and then.
  void flush();
  /// Lines, or pieces of one, that are not written yet.
  std::size_t linesKept() const;
  /// Whether all has been written.
  bool empty() const { return kept_.empty(); }
  /// Waits until all is written or the reader is gone, at most for this time, if any; not for room on a disk.
  void wait(std::optional<std::chrono::milliseconds> longest = {});

 private:
  bool writable(int milliseconds) const;
  void drain();
  bool keep(std::string_view text);

  int descriptor_;
  bool own_;  ///< the descriptor is a second opening of the same terminal or pipe
  std::size_t bound_;
  bool full_ = false;  ///< the disk that it goes to
  std::string kept_;
  std::size_t dropped_ = 0;  ///< lines
};

}  // namespace tarnlog
