#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "records/Record.h"

namespace tarnlog {

/// What stands before the rows of a text record: three lines, or one in an event file.
struct TextHeader {
  RecordHead head;
  std::uint64_t rows = 0;  ///< where they begin
  bool alone = false;      ///< nothing stands behind its first line, which may be all of it or not
};

/// How a header begins.
inline constexpr std::string_view kTextBeginning = "time\tevent";

/// The header at this place, which ends before `till`; none when it is not whole. `name` is the file's.
std::optional<TextHeader> readTextHeader(const ReadableFile& file, std::uint64_t place, std::uint64_t till,
                                         const std::string& name);

}  // namespace tarnlog
