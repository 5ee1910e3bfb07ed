#pragma once

#include <string>
#include <vector>

#include "acquisition/RollingBuffer.h"
#include "platform/ferrox3/Session.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// The value as a number; NaN for texts and byte arrays.
double numericValue(const ferrox3::Value& value);

/// Appends what buffers and files show of an item: the value as text (numbers with the user's decimal
/// separator, an enumerated item its number); for byte arrays, and numbers that are none, the host's value
/// text.
void appendCellText(std::string& out, const ferrox3::DataItem& item, char decimalSeparator);

/// Appends a row to the buffer: the items' current values, in their order.
void readValues(const std::vector<ferrox3::DataItem*>& items, Milliseconds time, RollingBuffer& buffer,
                char decimalSeparator);

}  // namespace tarnlog
