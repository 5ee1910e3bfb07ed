#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/base/TarnError.h"

namespace tarnlog {

/// The path and the system's text for this errno.
TarnError systemError(const std::string& path, int error);

/// Writes all bytes; returns how many got out, which is fewer when errno tells why.
std::size_t writeAll(int fd, std::string_view bytes);

/// An open file descriptor, closed at the end.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags, mode_t mode = 0666);
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return fd_; }

  /// Makes the file this descriptor's own for as long as it is open. False when another one, in whatever
  /// process, has it. True also where the file system knows no such locks.
  bool lock() const;
  std::size_t writeAll(std::string_view bytes) const { return tarnlog::writeAll(fd_, bytes); }
  /// Writes from this place on, also where the file is open for appending. Returns errno, or 0.
  int overwrite(off_t offset, std::string_view bytes) const;

 private:
  int fd_;
};

}  // namespace tarnlog
