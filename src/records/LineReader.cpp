#include "records/LineReader.h"

#include <algorithm>
#include <cstring>

#include "records/RecordWalk.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBlock = 256 * 1024;
constexpr std::size_t kLongest = 16 * 1024 * 1024;

}  // namespace

LineReader::LineReader(const ReadableFile& file, std::uint64_t from, std::uint64_t till, char lineEnd)
    : file_(file), place_(from), till_(till), lineEnd_(lineEnd), block_(kBlock) {}

bool LineReader::next() {
  begin_ = next_;
  std::size_t looked = 0;
  const auto* lineEnd = static_cast<const char*>(nullptr);
  do {
    const std::size_t from = begin_ + looked;
    looked = filled_ - begin_;
    lineEnd = static_cast<const char*>(std::memchr(block_.data() + from, lineEnd_, filled_ - from));
  } while (lineEnd == nullptr && fill());
  whole_ = lineEnd != nullptr;
  end_ = whole_ ? static_cast<std::size_t>(lineEnd - block_.data()) : filled_;
  next_ = whole_ ? end_ + 1 : filled_;
  if (whole_ && end_ > begin_ && block_[end_ - 1] == '\r') --end_;
  return next_ != begin_;
}

/// Moves the line that has begun to the front and reads on behind it.
bool LineReader::fill() {
  if (place_ >= till_) return false;
  std::memmove(block_.data(), block_.data() + begin_, filled_ - begin_);
  filled_ -= begin_;
  begin_ = 0;
  if (filled_ > kLongest)
    throw NotARecord(1, "LineReader", "a line does not end within 16 MB, this is no record");
  if (block_.size() - filled_ < kBlock / 2) block_.resize(2 * block_.size());
  const std::size_t most =
      static_cast<std::size_t>(std::min<std::uint64_t>(block_.size() - filled_, till_ - place_));
  const std::size_t count = file_.readAt(place_, block_.data() + filled_, most);
  filled_ += count;
  place_ += count;
  return count != 0;
}

}  // namespace tarnlog
