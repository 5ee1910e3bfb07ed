#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <string_view>

namespace tarnlog {

/// The system calls that change files and folders, so that a test can stand between them and the disk. Each
/// returns and sets errno as the call of its name does. Called from the thread of the streams and from the
/// one that syncs.
class FileCalls {
 public:
  FileCalls() = default;
  virtual ~FileCalls() = default;
  FileCalls(const FileCalls&) = delete;
  FileCalls& operator=(const FileCalls&) = delete;

  virtual int open(const std::string& path, int flags, mode_t mode);
  virtual ssize_t write(int file, std::string_view bytes);
  virtual ssize_t pwrite(int file, std::string_view bytes, off_t offset);
  virtual int ftruncate(int file, off_t size);
  virtual int fdatasync(int file);
  virtual int fsync(int file);
  virtual int rename(const std::string& from, const std::string& to);
  virtual int unlink(const std::string& path);

  static const std::shared_ptr<FileCalls>& ofSystem();
};

/// Of a file: "." when its path has none.
std::string folderOf(const std::string& path);

/// Makes the names in a folder last over a power cut. Returns errno, or 0; 0 also where the folder cannot be
/// synced at all, on a file system that knows no such thing or without the right to read it.
int syncFolder(const std::string& folder, FileCalls& calls);

}  // namespace tarnlog
