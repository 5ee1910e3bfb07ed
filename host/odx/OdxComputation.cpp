#include "host/odx/OdxComputation.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

#include "host/odx/LeftOut.h"
#include "host/odx/OdxLayer.h"

namespace tarnlog::host {
namespace {

/// A limit of a text table may name a range; longer ones would only fill lists.
constexpr std::int64_t kLongestRange = 16;

std::optional<double> number(const std::string& text) {
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data() + (text.starts_with('+') ? 1 : 0), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return {};
  return value;
}

double scaled(const DataLayout& layout, double raw) {
  return raw * layout.factor / layout.divisor + layout.offset;
}

void readLinear(XmlElement scale, DataLayout& layout) {
  const auto numerators = scale.selectNodes("COMPU-RATIONAL-COEFFS/COMPU-NUMERATOR/V");
  const auto denominators = scale.selectNodes("COMPU-RATIONAL-COEFFS/COMPU-DENOMINATOR/V");
  const auto valueOf = [](const std::vector<XmlElement>& list, std::size_t i, double otherwise) {
    if (i >= list.size()) return otherwise;
    const auto value = number(list[i].text());
    if (!value) throw LeftOut("has a linear computation that is not made of numbers");
    return *value;
  };
  layout.divisor = valueOf(denominators, 0, 1);
  layout.factor = valueOf(numerators, 1, 0);
  if (layout.divisor == 0 || layout.factor == 0 || numerators.size() > 2 || denominators.size() > 1)
    throw LeftOut("has a computation that is not linear");
  layout.offset = valueOf(numerators, 0, 0) / layout.divisor;
  for (const std::int64_t raw : {layout.field.lowest(), layout.field.highest()})
    if (!std::isfinite(scaled(layout, static_cast<double>(raw)))) throw LeftOut("has values without end");
}

/// A whole number up to which a text counts; none where there is no limit.
std::optional<std::int64_t> textLimit(XmlElement scale, const char* name, int inwards) {
  const XmlElement limit = scale.firstChild(name);
  const std::string_view type = limit.attributeOrEmpty("INTERVAL-TYPE");
  auto value = odxInteger(plainText(limit));
  if (type == "INFINITE") return {};
  if (type == "OPEN" && value) *value += inwards;
  return value;
}

/// False when texts are missing, as their values are too many.
bool readTexts(const std::vector<XmlElement>& scales, DataDescription& data) {
  bool complete = true;
  std::set<std::string> labels;
  std::set<std::int64_t> values;
  for (const XmlElement scale : scales) {
    const std::string label = childText(scale.firstChild("COMPU-CONST"), "VT");
    const auto from = textLimit(scale, "LOWER-LIMIT", 1);
    const auto to = scale.firstChild("UPPER-LIMIT") ? textLimit(scale, "UPPER-LIMIT", -1) : from;
    if (label.empty()) continue;
    if (!from || !to || *to - *from >= kLongestRange) {
      complete = false;
      continue;
    }
    for (std::int64_t value = *from; value <= *to; ++value) {
      if (value > std::numeric_limits<std::int32_t>::max() || !values.insert(value).second) continue;
      std::string own = labels.contains(label) ? fmt::format("{} ({})", label, value) : label;
      if (!labels.insert(own).second) continue;
      data.enumeration.push_back({static_cast<std::int32_t>(value), std::move(own)});
    }
  }
  return complete;
}

bool isWhole(double value) { return std::trunc(value) == value; }

/// Integers where every value that the bits can express is one of 32 bits.
DataKind kindOf(const DataLayout& layout) {
  const double ends[] = {scaled(layout, static_cast<double>(layout.field.lowest())),
                         scaled(layout, static_cast<double>(layout.field.highest()))};
  const bool fits = std::ranges::all_of(ends, [](double value) {
    return value >= std::numeric_limits<std::int32_t>::min() &&
           value <= std::numeric_limits<std::int32_t>::max();
  });
  const bool whole = layout.divisor == 1 && isWhole(layout.factor) && isWhole(layout.offset);
  return whole && fits ? DataKind::integer : DataKind::real;
}

}  // namespace

bool readOdxComputation(XmlElement dataObject, DataDescription& data) {
  const XmlElement method = dataObject.firstChild("COMPU-METHOD");
  const std::string category = childText(method, "CATEGORY");
  const auto scales = method.selectNodes("COMPU-INTERNAL-TO-PHYS/COMPU-SCALES/COMPU-SCALE");
  const bool linear = category == "LINEAR" || (category == "SCALE-LINEAR" && scales.size() == 1);
  bool complete = true;
  if (linear && !scales.empty())
    readLinear(scales[0], data.layout);
  else if (category == "TEXTTABLE")
    complete = readTexts(scales, data);
  else if (category != "IDENTICAL")
    throw LeftOut("is computed by " + (category.empty() ? "no named method" : category));
  data.layout.kind = kindOf(data.layout);
  if (data.layout.kind != DataKind::integer && !data.enumeration.empty()) {
    data.enumeration.clear();
    complete = false;
  }
  const auto precision = odxInteger(childText(dataObject.firstChild("PHYSICAL-TYPE"), "PRECISION"));
  if (precision && *precision >= 0 && *precision <= 15 && data.layout.kind == DataKind::real)
    data.decimals = static_cast<int>(*precision);
  return complete;
}

}  // namespace tarnlog::host
