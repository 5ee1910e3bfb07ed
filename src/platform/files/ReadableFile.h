#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/files/Descriptor.h"

namespace tarnlog {

/// A file that is read from any place. A file that is being written has the bytes that it had when it was
/// opened.
class ReadableFile {
 public:
  virtual ~ReadableFile() = default;
  virtual std::uint64_t size() const = 0;
  /// The bytes from this place on, at most so many; fewer at the end. Raises a TarnError.
  virtual std::size_t readAt(std::uint64_t place, char* to, std::size_t most) const = 0;
};

/// A regular file on a disk. Whoever writes it is not disturbed.
class SystemReadableFile : public ReadableFile {
 public:
  /// Raises a TarnError for what cannot be opened or is no regular file, such as a pipe.
  explicit SystemReadableFile(const std::string& path);
  std::uint64_t size() const override { return size_; }
  std::size_t readAt(std::uint64_t place, char* to, std::size_t most) const override;

 protected:
  const std::string& path() const { return path_; }
  int descriptor() const { return file_.get(); }
  void setSize(std::uint64_t size) { size_ = size; }

 private:
  std::string path_;
  Descriptor file_;
  std::uint64_t size_ = 0;
};

}  // namespace tarnlog
