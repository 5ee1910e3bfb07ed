#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "records/RecordFigures.h"

namespace tarnlog {

/// How long a column had one label, text or number.
struct HeldLabel {
  std::string label;
  double seconds = 0;
  std::int64_t times = 0;  ///< how often it began
  double first = 0;        ///< when it began first, or where the span does
};

/// What a column with labels or texts, or an on/off one, said between two times, in the order in which it was
/// said first. Each value holds from its row to the next one; a row without a value, and a gap, hold for no
/// time. A number without a label is called by its digits.
std::vector<HeldLabel> heldLabels(const TableRecording& recording, const TableGroup& group,
                                  const TableColumn& column, const TimeSpan& span);

}  // namespace tarnlog
