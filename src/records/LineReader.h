#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/files/ReadableFile.h"

namespace tarnlog {

/// The lines of a part of a file, a block in memory at a time. Lines end with LF or CR LF, or as they are
/// told to.
class LineReader {
 public:
  LineReader(const ReadableFile& file, std::uint64_t from, std::uint64_t till, char lineEnd = '\n');

  /// Goes to the next line; false behind the last one. Raises NotARecord when it is longer than 16 MB.
  bool next();
  /// The line without its end; it may be changed until the next one is asked for.
  char* begin() { return block_.data() + begin_; }
  char* end() { return block_.data() + end_; }
  /// Whether its end is there.
  bool whole() const { return whole_; }
  std::uint64_t place() const { return place_ - (filled_ - begin_); }
  /// Where the next line begins.
  std::uint64_t nextPlace() const { return place_ - (filled_ - next_); }

 private:
  bool fill();

  const ReadableFile& file_;
  std::uint64_t place_;  ///< in the file: of what comes behind the block
  std::uint64_t till_;
  char lineEnd_;
  std::vector<char> block_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  bool whole_ = false;
};

}  // namespace tarnlog
