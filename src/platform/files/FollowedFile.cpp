#include "platform/files/FollowedFile.h"

#include <sys/stat.h>

#include <cerrno>

namespace tarnlog {

FollowedFile::Change FollowedFile::look() {
  struct stat opened {};
  struct stat named {};
  if (::fstat(descriptor(), &opened) != 0) throw systemError(path(), errno);
  const auto now = static_cast<std::uint64_t>(opened.st_size);
  if (now < size()) return Change::Shrank;
  const std::int64_t written = opened.st_mtim.tv_sec * 1'000'000'000 + opened.st_mtim.tv_nsec;
  if (now > size() || written != written_) {
    setSize(now);
    written_ = written;
    return Change::Changed;
  }
  if (::stat(path().c_str(), &named) != 0) return errno == ENOENT ? Change::Removed : Change::None;
  return named.st_dev == opened.st_dev && named.st_ino == opened.st_ino ? Change::None : Change::Replaced;
}

}  // namespace tarnlog
