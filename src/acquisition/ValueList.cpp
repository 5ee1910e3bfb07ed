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
  extremesOwed_ = owed_;
  extremes_.begin(items_.size());
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
    if ((!unchanged || !extremes_.known(i)) && extremes_.note(i, *items_[i])) extremesOwed_[i] = 1;
  }
}

void ValueList::refresh() {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (owed_[i] != 0) owed_[i] = write(i) ? 0 : 1;
    if (std::exchange(extremesOwed_[i], char{0}) != 0) writeExtremes(i);
  }
}

void ValueList::resetExtremes() {
  extremes_.reset();
  extremesOwed_.assign(items_.size(), 1);
}

void ValueList::writeExtremes(std::size_t item) {
  const ValueExtremes::Range& range = extremes_.of(item);
  screen_.setValueExtremes(static_cast<int>(item) + 1, range.least.text, range.greatest.text);
}

/// False when the text could not be read: it stays owed.
bool ValueList::write(std::size_t item) {
  std::string_view text = kUnreadable;
  const bool readable = skipOnFailure([&] { text = items_[item]->valueText(); });
  screen_.setValueText(static_cast<int>(item) + 1, text);
  return readable;
}

}  // namespace tarnlog
