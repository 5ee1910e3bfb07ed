#include "apps/common/NonWaitingStream.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

#include "platform/text/Told.h"

namespace tarnlog {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// A pipe that is ready takes so much without waiting; a terminal may have only some hundred bytes left.
constexpr std::size_t kPipePiece = PIPE_BUF;
constexpr std::size_t kTerminalPiece = 64;

/// The same terminal or pipe opened once more, where a write that would wait can be told not to. -1 where
/// that is not possible, for example on another user's terminal.
int openedAgain(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return -1;
  if (!S_ISFIFO(status.st_mode) && ::isatty(descriptor) == 0) return -1;
  const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
  return ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

}  // namespace

NonWaitingStream::NonWaitingStream(int descriptor, std::size_t bound)
    : descriptor_(openedAgain(descriptor)), own_(descriptor_ >= 0), bound_(bound) {
  if (!own_) descriptor_ = descriptor;
}

NonWaitingStream::~NonWaitingStream() {
  if (own_) ::close(descriptor_);
}

void NonWaitingStream::write(std::string_view text) {
  flush();
  if (dropped_ > 0 || !keep(text)) ++dropped_;
  drain();
}

bool NonWaitingStream::offer(std::string_view lines) {
  drain();
  if (!keep(lines)) return false;
  drain();
  return true;
}

/// The count of the lines that are missing stands where they are missing.
void NonWaitingStream::flush() {
  drain();
  if (dropped_ == 0 || !kept_.empty()) return;
  kept_ = Told::tr("... {} lines not shown", dropped_) + "\n";
  dropped_ = 0;
  drain();
}

void NonWaitingStream::wait(std::optional<std::chrono::milliseconds> longest) {
  const auto end = SteadyClock::now() + longest.value_or(std::chrono::milliseconds(0));
  for (flush(); !empty() && !full_; flush()) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - SteadyClock::now()).count();
    if (longest && left <= 0) return;
    writable(longest ? static_cast<int>(left) : -1);
  }
}

std::size_t NonWaitingStream::linesKept() const {
  const auto ends = static_cast<std::size_t>(std::ranges::count(kept_, '\n'));
  return kept_.empty() || kept_.back() == '\n' ? ends : ends + 1;
}

bool NonWaitingStream::keep(std::string_view text) {
  if (kept_.size() > bound_ || text.size() > bound_ - kept_.size()) return false;
  kept_ += text;
  return true;
}

bool NonWaitingStream::writable(int milliseconds) const {
  pollfd stream{descriptor_, POLLOUT, 0};
  return ::poll(&stream, 1, milliseconds) > 0;
}

/// Asks before each piece: a piece that fits is written without waiting also where the descriptor may wait.
void NonWaitingStream::drain() {
  const std::size_t piece = !own_ && ::isatty(descriptor_) != 0 ? kTerminalPiece : kPipePiece;
  std::size_t done = 0;
  full_ = false;
  while (done < kept_.size() && writable(0)) {
    const ssize_t count = ::write(descriptor_, kept_.data() + done, std::min(piece, kept_.size() - done));
    if (count < 0 && errno == EINTR) continue;
    full_ = count < 0 && (errno == ENOSPC || errno == EDQUOT);
    if (full_ || (count < 0 && errno == EAGAIN)) break;
    // Nobody will read it any more.
    done = count < 0 ? kept_.size() : done + static_cast<std::size_t>(count);
  }
  kept_.erase(0, done);
}

}  // namespace tarnlog
