#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/Descriptor.h"

namespace tarnlog {

/// At most so many bytes from this place on; fewer at the end. Raises a TarnError, for which `path` is.
std::size_t readAt(const Descriptor& file, const std::string& path, std::uint64_t place, char* to,
                   std::size_t most);

/// A file that is to be repaired, by whatever path it was named. It is locked, so that nobody writes it.
class FileToRepair {
 public:
  /// Raises BadInput when it is no regular file or is being written, a TarnError when it cannot be opened.
  explicit FileToRepair(const std::string& path);

  const std::string& path() const { return path_; }    ///< as it was given
  const std::string& place() const { return place_; }  ///< without links
  const Descriptor& descriptor() const { return file_; }
  mode_t mode() const { return mode_; }
  std::uint64_t size() const { return size_; }

 private:
  std::string path_;
  std::string place_;
  Descriptor file_;
  mode_t mode_ = 0;
  std::uint64_t size_ = 0;
};

/// The repaired file before it takes the place of the original; removed when it does not come to that.
class RepairedCopy {
 public:
  explicit RepairedCopy(const FileToRepair& original);
  ~RepairedCopy();
  RepairedCopy(const RepairedCopy&) = delete;
  RepairedCopy& operator=(const RepairedCopy&) = delete;

  void add(std::string_view piece);
  /// Everything that was added is on the disk then. All of these raise a TarnError.
  void finish();
  void overwrite(std::uint64_t offset, std::string_view bytes);
  /// The original gets another name beside it, which is returned.
  std::string take();

  const std::string& path() const { return path_; }
  const Descriptor& descriptor() const { return file_; }

 private:
  void writeBlock();

  const FileToRepair& original_;
  std::string path_;
  Descriptor file_;
  std::string block_;
  bool placed_ = false;
};

}  // namespace tarnlog
