#include "acquisition/ValueReading.h"

#include <cmath>

#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"

namespace tarnlog {

void appendCellText(std::string& out, const ferrox3::DataItem& item, char decimalSeparator) {
  const ferrox3::Value& value = item.value();
  const auto* real = std::get_if<double>(&value);
  if (item.typeCode() == ferrox3::kByteArray || (real != nullptr && !std::isfinite(*real)))
    out.append(item.valueText());
  else if (real != nullptr)
    appendNumber(out, *real, decimalSeparator);
  else if (const auto* integer = std::get_if<std::int32_t>(&value))
    appendNumber(out, *integer);
  else if (const auto* text = std::get_if<std::string>(&value))
    out.append(*text);
  else
    out.append(item.valueText());
}

void ValueReader::read(const std::vector<ferrox3::DataItem*>& items, Milliseconds time,
                       RollingBuffer& buffer) {
  buffer.AddRow(time);
  std::int32_t column = 0;
  for (const ferrox3::DataItem* item : items) {
    text_.clear();
    if (!skipOnFailure([&] { appendCellText(text_, *item, decimalSeparator_); })) text_ = kUnreadable;
    buffer.SetData(++column, text_);
  }
}

}  // namespace tarnlog
