#pragma once

#include "records/RecordTable.h"

/// How far apart the rows of a group are.
namespace tarnlog {

/// Seconds from a row to the next one, mostly: the median of some steps from all over the group. 0 with fewer
/// than two rows.
double usualStep(const TableGroup& group);
/// Where the next row comes later than this, a curve is broken.
double longestStep(double usual);

}  // namespace tarnlog
