#include "host/odx/OdxValidity.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "host/odx/LeftOut.h"

namespace tarnlog::host {
namespace {

/// Coded numbers, both ends included.
struct Interval {
  std::int64_t first;
  std::int64_t last;
};

Interval everything(const BitField& field) { return {field.lowest(), field.highest()}; }

std::optional<double> limitOf(XmlElement limit) {
  if (limit.attributeOrEmpty("INTERVAL-TYPE") == "INFINITE") return {};
  const std::string text = plainText(limit);
  const char* const end = text.data() + text.size();
  double value = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || std::isnan(value)) return {};
  return value;
}

/// ISO 22901-1: a limit belongs to its interval unless it is OPEN; without one the interval is infinite.
Interval intervalOf(XmlElement limits, const BitField& field) {
  const Interval all = everything(field);
  const auto within = [&](double value) {
    const double low = static_cast<double>(all.first) - 1;
    return static_cast<std::int64_t>(std::clamp(value, low, static_cast<double>(all.last) + 1));
  };
  const XmlElement lower = limits.firstChild("LOWER-LIMIT");
  const XmlElement upper = limits.firstChild("UPPER-LIMIT");
  const auto isOpen = [](XmlElement limit) { return limit.attributeOrEmpty("INTERVAL-TYPE") == "OPEN"; };
  Interval interval = all;
  if (const auto value = limitOf(lower))
    interval.first = within(isOpen(lower) ? std::floor(*value) + 1 : std::ceil(*value));
  if (const auto value = limitOf(upper))
    interval.last = within(isOpen(upper) ? std::ceil(*value) - 1 : std::floor(*value));
  return interval;
}

/// Collects the numbers that are no values.
class Validity {
 public:
  explicit Validity(const BitField& field) : field_(field), valid_(everything(field)) {}

  void onlyWithin(XmlElement limits) {
    const Interval interval = intervalOf(limits, field_);
    valid_.first = std::max(valid_.first, interval.first);
    valid_.last = std::min(valid_.last, interval.last);
    if (valid_.first > valid_.last) throw LeftOut("has limits that no value is within");
  }

  void exclude(XmlElement limits) { exclude(intervalOf(limits, field_)); }

  Interval valid() const { return valid_; }

  std::vector<BitPatterns> take() {
    const Interval all = everything(field_);
    exclude({all.first, valid_.first - 1});
    exclude({valid_.last + 1, all.last});
    merge();
    return std::move(excluded_);
  }

 private:
  /// As bits, negative numbers stand behind the positive ones.
  void exclude(Interval interval) {
    interval.first = std::max(interval.first, field_.lowest());
    interval.last = std::min(interval.last, field_.highest());
    add({interval.first, std::min<std::int64_t>(interval.last, -1)});
    add({std::max<std::int64_t>(interval.first, 0), interval.last});
  }

  void add(Interval interval) {
    if (interval.first > interval.last) return;
    const auto bits = [&](std::int64_t raw) { return static_cast<std::uint32_t>(raw) & field_.mask(); };
    excluded_.push_back({bits(interval.first), bits(interval.last)});
  }

  void merge() {
    std::ranges::sort(excluded_, {}, &BitPatterns::from);
    std::vector<BitPatterns> merged;
    for (const BitPatterns& next : excluded_) {
      if (!merged.empty() && next.from <= std::uint64_t{merged.back().to} + 1)
        merged.back().to = std::max(merged.back().to, next.to);
      else
        merged.push_back(next);
    }
    excluded_ = std::move(merged);
  }

  BitField field_;
  Interval valid_;
  std::vector<BitPatterns> excluded_;
};

bool isNoValue(XmlElement constraint) {
  const std::string_view validity = constraint.attributeOrEmpty("VALIDITY");
  return !validity.empty() && validity != "VALID";
}

bool hasNoValues(XmlElement constraints) {
  return std::ranges::any_of(constraints.selectNodes("SCALE-CONSTRS/SCALE-CONSTR"), isNoValue);
}

}  // namespace

void readOdxValidity(XmlElement dataObject, DataDescription& data) {
  Validity validity(data.layout.field);
  const XmlElement constraints = dataObject.firstChild("INTERNAL-CONSTR");
  if (constraints) validity.onlyWithin(constraints);
  const auto scales = dataObject.selectNodes("COMPU-METHOD/COMPU-INTERNAL-TO-PHYS/COMPU-SCALES/COMPU-SCALE");
  if (scales.size() == 1 && scales[0].firstChild("COMPU-RATIONAL-COEFFS")) validity.onlyWithin(scales[0]);
  for (const XmlElement constraint : constraints.selectNodes("SCALE-CONSTRS/SCALE-CONSTR"))
    if (isNoValue(constraint)) validity.exclude(constraint);
  const auto scaled = [&](std::int64_t raw) {
    return static_cast<double>(raw) * data.layout.factor / data.layout.divisor + data.layout.offset;
  };
  const auto [least, most] = std::minmax({scaled(validity.valid().first), scaled(validity.valid().last)});
  data.minimum = least;
  data.maximum = most;
  data.layout.notAvailable = validity.take();
}

bool hasOtherOdxConstraints(XmlElement dataObject, const DataDescription& data) {
  return hasNoValues(dataObject.firstChild("PHYS-CONSTR")) ||
         (!data.layout.isNumber() && hasNoValues(dataObject.firstChild("INTERNAL-CONSTR")));
}

}  // namespace tarnlog::host
