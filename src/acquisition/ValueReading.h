#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "acquisition/RollingBuffer.h"
#include "platform/ferrox3/Session.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// What is shown of an item whose value cannot be read: everything else of the cycle goes on.
inline constexpr std::string_view kUnreadable = "---";

/// Appends what buffers and files show of an item: the value as text (numbers with the user's decimal
/// separator, an enumerated item its number); for byte arrays, and numbers that are none, the host's value
/// text.
void appendCellText(std::string& out, const ferrox3::DataItem& item, char decimalSeparator);

/// Reads the current values of items into rows of a buffer.
class ValueReader {
 public:
  explicit ValueReader(char decimalSeparator) : decimalSeparator_(decimalSeparator) {}

  /// Appends a row: one cell for each item, in their order.
  void read(const std::vector<ferrox3::DataItem*>& items, Milliseconds time, RollingBuffer& buffer);

 private:
  char decimalSeparator_;
  std::string text_;  ///< scratch, kept for its capacity
};

}  // namespace tarnlog
