#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "samples/MdfClosing.h"

namespace tarnlog {

/// What makes a finished file of one whose recording was killed.
struct MdfFinish {
  std::size_t keep = 0;  ///< bytes from the file's beginning; behind them are an incomplete record or remains
                         ///< of a closing that did not come to its end
  std::uint64_t cutBytes = 0;  ///< of records that are not whole
  std::uint64_t records = 0;   ///< whole ones, without values of variable length
  bool finished = false;       ///< the file is finished already; there is nothing to do
  MdfClosing closing;
};

/// Reads an unfinished file. A TarnError names the block and the place where it holds what this does not
/// understand.
MdfFinish planMdfFinish(std::string_view file);

/// Closes a file that holds the first `keep` bytes of such a one. Raises what the stream raises.
void finishMdf(FileStream& copy, const MdfFinish& finish);

}  // namespace tarnlog
