#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace tarnlog {

/// Keeps copies of texts, which stay where they are until the arena is cleared. The memory is kept then, so
/// once warm it allocates nothing.
class TextArena {
 public:
  std::string_view copy(std::string_view text) { return join({text}); }

  /// One text of these parts.
  std::string_view join(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const std::string_view part : parts) size += part.size();
    if (left_ < size) useNextBlock(size);
    char* const to = next_;
    for (const std::string_view part : parts) next_ = std::copy(part.begin(), part.end(), next_);
    left_ -= size;
    return {to, size};
  }

  void clear() {
    used_ = 0;
    left_ = 0;
  }

 private:
  struct Block {
    std::unique_ptr<char[]> bytes;
    std::size_t size;
  };

  void useNextBlock(std::size_t size) {
    while (used_ < blocks_.size() && blocks_[used_].size < size) ++used_;
    if (used_ == blocks_.size()) {
      const std::size_t grown = std::max(size, blocks_.empty() ? 1024 : 2 * blocks_.back().size);
      blocks_.push_back({std::unique_ptr<char[]>(new char[grown]), grown});
    }
    next_ = blocks_[used_].bytes.get();
    left_ = blocks_[used_].size;
    ++used_;
  }

  std::vector<Block> blocks_;
  std::size_t used_ = 0;  ///< blocks in use, the last of them in part
  char* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace tarnlog
