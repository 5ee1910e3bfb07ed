#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/base/TarnError.h"
#include "platform/files/FileCalls.h"

namespace tarnlog {

/// The path and the system's text for this errno.
TarnError systemError(const std::string& path, int error);

/// Writes all bytes; returns how many got out, which is fewer when errno tells why.
std::size_t writeAll(int fd, std::string_view bytes, FileCalls& calls = *FileCalls::ofSystem());

/// An open file descriptor, closed at the end. `calls` outlives it.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags, mode_t mode = 0666,
             FileCalls& calls = *FileCalls::ofSystem());
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return fd_; }

  /// Another descriptor of the same open file, with its lock. `path` is for the TarnError.
  Descriptor duplicate(const std::string& path) const;

  /// Makes the file this open file's own for as long as it is open. False when another one, in whatever
  /// process, has it. True also where the file system knows no such locks.
  bool lock() const;
  /// Gives it back earlier, also while there are duplicates.
  void unlock() const;
  std::size_t writeAll(std::string_view bytes) const { return tarnlog::writeAll(fd_, bytes, calls_); }
  /// Writes from this place on, also where the file is open for appending. Returns errno, or 0.
  int overwrite(off_t offset, std::string_view bytes) const;

 private:
  Descriptor(int fd, const std::string& path, FileCalls& calls);

  int fd_;
  FileCalls& calls_;
};

}  // namespace tarnlog
