#include "samples/SampleHistory.h"

#include <cstring>

namespace tarnlog {

void SampleHistory::add(std::size_t group, std::int64_t at, std::string_view record) {
  const Head head{group, at, record.size()};
  makeRoom(head.wholeSize());
  char bytes[sizeof head];
  std::memcpy(bytes, &head, sizeof head);
  bytes_.append(bytes, sizeof bytes).append(record);
}

void SampleHistory::dropBefore(std::int64_t at) {
  while (begin_ < bytes_.size() && headAt(begin_).at < at) dropOldest();
}

void SampleHistory::clear() {
  bytes_.clear();
  begin_ = 0;
  lost_ = 0;
}

SampleHistory::Head SampleHistory::headAt(std::size_t place) const {
  Head head{};
  std::memcpy(&head, bytes_.data() + place, sizeof head);
  return head;
}

/// What is kept moves to the front only when it is at most half of the memory, so that a byte is moved about
/// once for each that is added.
void SampleHistory::makeRoom(std::size_t bytes) {
  for (; bytes_.size() - begin_ + bytes > mostBytes_ && begin_ < bytes_.size(); ++lost_) dropOldest();
  if (bytes_.size() + bytes <= bytes_.capacity() || bytes_.size() > 2 * begin_) return;
  bytes_.erase(0, begin_);
  begin_ = 0;
}

}  // namespace tarnlog
