#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/base/LargeMemory.h"

namespace tarnlog {

/// A list that only grows, in chunks, so that what is in it stays where it is. A copy shares the chunks: one
/// thread may go on adding to the original, which writes only where no copy looks, while others read copies.
/// Adding to a copy gives that one a last chunk of its own. Short lists take little memory.
template <class T, std::size_t kChunk>
class GrowingList {
 public:
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  const T& operator[](std::size_t position) const { return chunks_[position / kChunk][position % kChunk]; }
  const T& back() const { return (*this)[size_ - 1]; }

  void append(T value) {
    if (room_.next == room_.end) makeRoom();
    *room_.next++ = std::move(value);
    ++size_;
  }
  /// Makes the list longer by at most so many, which stand together and are set by the caller.
  std::span<T> extend(std::size_t most) {
    if (room_.next == room_.end) makeRoom();
    const std::span<T> added(room_.next, std::min(most, static_cast<std::size_t>(room_.end - room_.next)));
    room_.next += added.size();
    size_ += added.size();
    return added;
  }

 private:
  static constexpr std::size_t kSmallest = 16;
  static constexpr std::size_t kLarge = 32 * 1024;  ///< bytes

  /// What is free in the last chunk; a copy has none.
  struct Room {
    T* next = nullptr;
    T* end = nullptr;
    Room() = default;
    Room(const Room& /*other*/) {}
    Room& operator=(const Room& other) {
      if (this != &other) next = end = nullptr;
      return *this;
    }
    Room(Room&& other) noexcept
        : next(std::exchange(other.next, nullptr)), end(std::exchange(other.end, nullptr)) {}
    Room& operator=(Room&& other) noexcept {
      next = std::exchange(other.next, nullptr);
      end = std::exchange(other.end, nullptr);
      return *this;
    }
    ~Room() = default;
  };

  static std::shared_ptr<T[]> newChunk(std::size_t length) {
    if constexpr (std::is_trivial_v<T>) {
      if (length * sizeof(T) >= kLarge) {
        const std::shared_ptr<std::byte[]> memory = largeMemory(length * sizeof(T));
        return {memory, reinterpret_cast<T*>(memory.get())};
      }
    }
    return std::make_shared_for_overwrite<T[]>(length);
  }

  /// A chunk behind the last one, or a larger one in its place.
  void makeRoom() {
    const std::size_t used = size_ % kChunk;
    const std::size_t others = size_ / kChunk;
    const std::size_t length =
        others != 0 ? kChunk : std::min(kChunk, std::max(kSmallest, std::bit_ceil(used + 1)));
    const std::shared_ptr<T[]> chunk = newChunk(length);
    if (used != 0) std::copy_n(chunks_.back().get(), used, chunk.get());
    chunks_.resize(others);
    chunks_.push_back(chunk);
    room_.next = chunk.get() + used;
    room_.end = chunk.get() + length;
  }

  std::size_t size_ = 0;
  std::vector<std::shared_ptr<T[]>> chunks_;
  Room room_;
};

}  // namespace tarnlog
