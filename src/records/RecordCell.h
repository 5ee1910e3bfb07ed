#pragma once

#include <string>
#include <string_view>

#include "records/Record.h"

/// Cells of text and XML records.
namespace tarnlog {

/// Which decimal separator the writer of a recording used. The times tell, as the writer made them; where
/// they have no decimals, most of the cells do.
class SeparatorVote {
 public:
  /// True once the rest need not be looked at.
  bool addTime(std::string_view text);
  void addCell(std::string_view text);
  /// A line of a text record: its time, and its cells where that does not tell.
  bool addRow(std::string_view line);
  char separator() const { return commas_ > points_ ? ',' : '.'; }

 private:
  std::uint64_t points_ = 0;
  std::uint64_t commas_ = 0;
};

/// The value of a cell: a number when it is one as records write them, else a text; none when it is empty,
/// "---" or "NaN". The separator in the cell is turned into ".". Texts stay as they are.
RecordValue cellValue(char* begin, char* end, char separator);
/// The same of a cell that ends with the next TAB or with the line. Returns its end.
char* takeCell(char* begin, char* lineEnd, char separator, RecordValue& value);

}  // namespace tarnlog
