#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/base/ByteBuffer.h"

namespace tarnlog {

/// Appends a text in quotes. A byte that is not UTF-8 becomes U+FFFD.
void appendJson(ByteBuffer& out, std::string_view text);
void appendJson(ByteBuffer& out, std::int64_t number);
void appendJson(ByteBuffer& out, std::uint64_t number);
/// Reads back the same; null for what JSON has no number for.
void appendJson(ByteBuffer& out, double number);

/// Writes moments, nanoseconds since 1970, of which many are in one second.
class JsonMoments {
 public:
  void append(ByteBuffer& out, std::int64_t nanoseconds);

 private:
  std::int64_t second_ = 0;  ///< whose digits are kept
  char text_[20] = {};
  std::size_t digits_ = 0;
};

}  // namespace tarnlog
