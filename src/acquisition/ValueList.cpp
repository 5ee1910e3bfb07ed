#include "acquisition/ValueList.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include "acquisition/ValueReading.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

void ValueList::begin(std::vector<ferrox3::DataItem*> items) {
  items_ = std::move(items);
  owed_.assign(items_.size(), 0);
}

void ValueList::clear() {
  begin({});
  screen_.clearValueRows();
}

void ValueList::noteCycle(const RollingBuffer& current) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    bool unchanged = false;
    current.GetData(static_cast<std::int32_t>(i) + 1, unchanged);
    if (!unchanged) owed_[i] = 1;
  }
}

void ValueList::refresh() {
  for (std::size_t i = 0; i < items_.size(); ++i)
    if (owed_[i] != 0) owed_[i] = write(i) ? 0 : 1;
}

/// False when the text could not be read: it stays owed.
bool ValueList::write(std::size_t item) {
  std::string_view text = kUnreadable;
  const bool readable = skipOnFailure([&] { text = items_[item]->valueText(); });
  screen_.setValueText(static_cast<int>(item) + 1, text);
  return readable;
}

}  // namespace tarnlog
