#pragma once

#include <string>

#include "platform/files/ReadableFile.h"

namespace tarnlog {

/// A file that is read while somebody writes to it.
class FollowedFile : public SystemReadableFile {
 public:
  enum class Change {
    None,
    Changed,  ///< it grew, or was written over
    Shrank,
    Removed,
    Replaced  ///< its path leads to another file now
  };

  explicit FollowedFile(const std::string& path) : SystemReadableFile(path) { look(); }

  /// What happened to it since the last look. Its size is that of now unless it shrank.
  Change look();

 private:
  std::int64_t written_ = 0;  ///< when, nanoseconds
};

}  // namespace tarnlog
