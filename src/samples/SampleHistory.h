#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarnlog {

/// Records of the last while, for a recording that will begin before now. Holds at most so many bytes: the
/// oldest are dropped and counted. Once it has held as much as it will, it allocates nothing.
class SampleHistory {
 public:
  explicit SampleHistory(std::size_t mostBytes) : mostBytes_(mostBytes) {}

  /// Records come in the order of their times, more or less.
  void add(std::size_t group, std::int64_t at, std::string_view record);
  /// Drops what came earlier, up to the first record that did not.
  void dropBefore(std::int64_t at);
  void clear();

  /// Calls `visit(group, at, record)` for each, the oldest first.
  template <class Visit>
  void forEach(Visit visit) const {
    for (std::size_t place = begin_; place < bytes_.size(); place += headAt(place).wholeSize())
      visit(headAt(place).group, headAt(place).at,
            std::string_view(bytes_).substr(place + sizeof(Head), headAt(place).size));
  }
  /// Records that were dropped though they would have been needed, since this was asked last.
  std::uint64_t takeLost() { return std::exchange(lost_, 0); }

 private:
  struct Head {
    std::size_t group;
    std::int64_t at;
    std::size_t size;
    std::size_t wholeSize() const { return sizeof(Head) + size; }
  };

  Head headAt(std::size_t place) const;
  void dropOldest() { begin_ += headAt(begin_).wholeSize(); }
  void makeRoom(std::size_t bytes);

  std::size_t mostBytes_;
  std::string bytes_;
  std::size_t begin_ = 0;
  std::uint64_t lost_ = 0;
};

}  // namespace tarnlog
