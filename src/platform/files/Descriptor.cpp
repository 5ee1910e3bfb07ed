#include "platform/files/Descriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tarnlog {

TarnError systemError(const std::string& path, int error) {
  return {error, "FileSystem", path + ": " + std::strerror(error)};
}

std::size_t writeAll(int fd, std::string_view bytes, FileCalls& calls) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = calls.write(fd, bytes.substr(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

Descriptor::Descriptor(const std::string& path, int flags, mode_t mode, FileCalls& calls)
    : Descriptor(calls.open(path, flags | O_CLOEXEC, mode), path, calls) {}

Descriptor::Descriptor(int fd, const std::string& path, FileCalls& calls) : fd_(fd), calls_(calls) {
  if (fd_ < 0) throw systemError(path, errno);
}

Descriptor::~Descriptor() { ::close(fd_); }

Descriptor Descriptor::duplicate(const std::string& path) const {
  return {::fcntl(fd_, F_DUPFD_CLOEXEC, 0), path, calls_};
}

/// A lock of the open file, not of the process: one that any close in this process drops would protect
/// nothing.
bool Descriptor::lock() const {
  while (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return false;
    if (errno != EINTR) return true;
  }
  return true;
}

void Descriptor::unlock() const { ::flock(fd_, LOCK_UN); }

/// Open for appending, `pwrite` appends, too, whatever its offset is.
int Descriptor::overwrite(off_t offset, std::string_view bytes) const {
  const int flags = ::fcntl(fd_, F_GETFL);
  ::fcntl(fd_, F_SETFL, flags & ~O_APPEND);
  int error = 0;
  while (error == 0 && !bytes.empty()) {
    const ssize_t count = calls_.pwrite(fd_, bytes, offset);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      error = errno;
    } else {
      offset += count;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }
  ::fcntl(fd_, F_SETFL, flags);
  return error;
}

}  // namespace tarnlog
