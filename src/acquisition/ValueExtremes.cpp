#include "acquisition/ValueExtremes.h"

#include <cmath>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

void take(ValueExtremes::Extreme& extreme, double number, const std::string& text) {
  extreme.text = text;
  extreme.number = number;
}

}  // namespace

void ValueExtremes::reset() {
  for (Range& range : ranges_)
    for (Extreme* const extreme : {&range.least, &range.greatest}) {
      extreme->number = std::numeric_limits<double>::quiet_NaN();
      extreme->text.clear();
    }
}

bool ValueExtremes::known(std::size_t item) const { return !std::isnan(ranges_[item].least.number); }

bool ValueExtremes::note(std::size_t item, const ferrox3::DataItem& data) {
  Range& range = ranges_[item];
  bool changed = false;
  skipOnFailure([&] {
    const double number = ferrox3::numericValue(data.value());
    if (!std::isfinite(number)) return;
    // Written so that the first number, compared with none, is taken.
    const bool lower = !(number >= range.least.number);
    const bool higher = !(number <= range.greatest.number);
    if (!lower && !higher) return;
    const std::string& text = data.valueText();
    if (lower) take(range.least, number, text);
    if (higher) take(range.greatest, number, text);
    changed = true;
  });
  return changed;
}

}  // namespace tarnlog
