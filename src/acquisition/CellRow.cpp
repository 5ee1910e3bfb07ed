#include "acquisition/CellRow.h"

#include <string>

namespace tarnlog {

void CellRow::setOutOfOrder(std::size_t position, std::string_view text) {
  if (position > filled_) {
    keepOldUpTo(position - 1);
    append(text);
    return;
  }
  const std::string_view all = text_.view();
  const std::uint32_t start = ends_[position - 1] + 1;
  const std::string behind(all.substr(ends_[position]));
  // Wraps when the cell gets shorter, and so does the sum below.
  const auto grown = static_cast<std::uint32_t>(start + text.size() - ends_[position]);
  text_.end(all.data() + start);
  text_.append(text);
  text_.append(behind);
  for (std::size_t column = position; column <= filled_; ++column) ends_[column] += grown;
}

}  // namespace tarnlog
