#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/TextArena.h"
#include "records/Record.h"

namespace tarnlog {

/// "byte 120: ", as messages about a place in a file begin.
std::string atByte(std::uint64_t place);
std::string headerNotWhole(std::uint64_t place);
std::string rowNotWhole(std::uint64_t place, std::uint64_t bytes);

/// Without the quotes around it.
std::string_view unquotedCell(std::string_view cell);

/// The rows of a recording in a text record, a line at a time.
class TextRows {
 public:
  TextRows(std::size_t columns, char separator) : separator_(separator), values_(columns) {}

  /// The line without its end, which may be changed. `whole`: its end is there. Empty ones are passed over.
  void take(char* begin, char* end, bool whole, std::uint64_t place, RecordConsumer& consumer);
  /// What was passed over.
  void tellMissing(std::vector<std::string>& missing) const;

 private:
  bool takeRow(char* begin, char* end, RecordConsumer& consumer);

  char separator_;
  std::vector<RecordValue> values_;  ///< of one row
  TextArena texts_;                  ///< of one row, where they are not as in the file
  std::uint64_t damaged_ = 0;        ///< rows
  std::uint64_t firstDamaged_ = 0;   ///< place
  std::uint64_t cut_ = 0;            ///< bytes of a row that is not whole
  std::uint64_t cutAt_ = 0;
};

}  // namespace tarnlog
