#include "acquisition/ValueList.h"

#include <cstdint>
#include <utility>

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
    if (std::exchange(owed_[i], char{0}) != 0)
      screen_.setValueText(static_cast<int>(i) + 1, items_[i]->valueText());
}

}  // namespace tarnlog
