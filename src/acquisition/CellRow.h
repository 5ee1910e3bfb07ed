#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/ByteBuffer.h"

namespace tarnlog {

/// The texts of one row, cells from 1. They lie behind one another, each after a TAB, as a text file has
/// them, so that filling a row from left to right and writing it out copy each text once.
class CellRow {
 public:
  explicit CellRow(std::int32_t columns)
      : ends_(static_cast<std::size_t>(columns) + 1), oldEnds_(ends_.size()) {}

  /// The row is filled anew; a cell keeps its old text until it is set.
  void startFilling() {
    keepOldUpTo(ends_.size() - 1);
    std::swap(text_, old_);
    std::swap(ends_, oldEnds_);
    text_.clear();
    filled_ = 0;
  }

  void set(std::int32_t column, std::string_view text) {
    const auto position = static_cast<std::size_t>(column);
    if (position == filled_ + 1) {
      append(text);
    } else {
      setOutOfOrder(position, text);
    }
  }

  std::string_view cell(std::int32_t column) const {
    const auto position = static_cast<std::size_t>(column);
    return position <= filled_ ? cellOf(text_, ends_, position) : cellOf(old_, oldEnds_, position);
  }

  /// All cells, each after a TAB.
  std::string_view text() {
    keepOldUpTo(ends_.size() - 1);
    return text_.view();
  }

 private:
  using Ends = std::vector<std::uint32_t>;  ///< by column, from 1: end of the cell in the text

  static std::string_view cellOf(const ByteBuffer& text, const Ends& ends, std::size_t position) {
    const std::size_t start = std::size_t{ends[position - 1]} + 1;
    return start > ends[position] ? std::string_view() : text.view().substr(start, ends[position] - start);
  }

  void append(std::string_view text) {
    char* const out = text_.room(text.size() + 1);
    *out = '\t';
    text_.end(std::copy(text.begin(), text.end(), out + 1));
    ends_[++filled_] = static_cast<std::uint32_t>(text_.size());
  }

  void keepOldUpTo(std::size_t position) {
    while (filled_ < position) append(cellOf(old_, oldEnds_, filled_ + 1));
  }

  void setOutOfOrder(std::size_t position, std::string_view text);

  ByteBuffer text_;
  Ends ends_;
  std::size_t filled_ = 0;  ///< cells that are in the text
  ByteBuffer old_;          ///< what the row held before
  Ends oldEnds_;
};

}  // namespace tarnlog
