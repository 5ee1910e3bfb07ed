#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace tarnlog {

/// Bytes that are gathered before they go out. Writers ask for room once and then write through a pointer;
/// the memory is kept when the buffer is emptied.
class ByteBuffer {
 public:
  /// Where the next bytes go, with room for at least this many. Hand the end of what was written to `end`.
  char* room(std::size_t bytes) {
    if (capacity_ - size_ < bytes) grow(bytes);
    return bytes_.get() + size_;
  }
  void end(const char* end) { size_ = static_cast<std::size_t>(end - bytes_.get()); }

  void append(std::string_view text) { end(std::copy(text.begin(), text.end(), room(text.size()))); }
  void append(std::size_t count, char c) { end(std::fill_n(room(count), count, c)); }
  void clear() { size_ = 0; }
  bool empty() const { return size_ == 0; }
  std::size_t size() const { return size_; }
  std::string_view view() const { return {bytes_.get(), size_}; }

 private:
  void grow(std::size_t bytes) {
    const std::size_t capacity = std::max(2 * capacity_, size_ + bytes + 256);
    std::unique_ptr<char[]> grown(new char[capacity]);
    std::copy_n(bytes_.get(), size_, grown.get());
    bytes_ = std::move(grown);
    capacity_ = capacity;
  }

  std::unique_ptr<char[]> bytes_{new char[1]};
  std::size_t size_ = 0;
  std::size_t capacity_ = 1;
};

}  // namespace tarnlog
