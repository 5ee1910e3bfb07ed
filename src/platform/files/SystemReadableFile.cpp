#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/files/ReadableFile.h"

namespace tarnlog {

SystemReadableFile::SystemReadableFile(const std::string& path)
    : path_(path), file_(path, O_RDONLY | O_NONBLOCK) {
  struct stat status {};
  if (::fstat(file_.get(), &status) != 0) throw systemError(path, errno);
  if (!S_ISREG(status.st_mode))
    throw TarnError(1, "FileSystem", path + ": not a regular file, expected one that can be read twice");
  size_ = static_cast<std::uint64_t>(status.st_size);
}

std::size_t SystemReadableFile::readAt(std::uint64_t place, char* to, std::size_t most) const {
  if (place >= size_) return 0;
  most = static_cast<std::size_t>(std::min<std::uint64_t>(most, size_ - place));
  std::size_t done = 0;
  while (done < most) {
    const ssize_t count = ::pread(file_.get(), to + done, most - done, static_cast<off_t>(place + done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw systemError(path_, errno);
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

}  // namespace tarnlog
