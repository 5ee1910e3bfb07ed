#include "platform/files/FileCalls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace tarnlog {

int FileCalls::open(const std::string& path, int flags, mode_t mode) {
  return ::open(path.c_str(), flags, mode);
}
ssize_t FileCalls::write(int file, std::string_view bytes) {
  return ::write(file, bytes.data(), bytes.size());
}
ssize_t FileCalls::pwrite(int file, std::string_view bytes, off_t offset) {
  return ::pwrite(file, bytes.data(), bytes.size(), offset);
}
int FileCalls::ftruncate(int file, off_t size) { return ::ftruncate(file, size); }
int FileCalls::fdatasync(int file) { return ::fdatasync(file); }
int FileCalls::fsync(int file) { return ::fsync(file); }
int FileCalls::rename(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str());
}
int FileCalls::unlink(const std::string& path) { return ::unlink(path.c_str()); }

const std::shared_ptr<FileCalls>& FileCalls::ofSystem() {
  static const auto calls = std::make_shared<FileCalls>();
  return calls;
}

std::string folderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

int syncFolder(const std::string& folder, FileCalls& calls) {
  const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  int error = 0;
  if (opened < 0 || calls.fsync(opened) != 0) error = errno;
  if (opened >= 0) ::close(opened);
  return error == EINVAL || error == EACCES ? 0 : error;
}

}  // namespace tarnlog
