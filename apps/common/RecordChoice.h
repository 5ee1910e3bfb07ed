#pragma once

#include <optional>
#include <string>
#include <vector>

#include "records/Record.h"

/// What of a record is wanted, as the command line tells it.
namespace tarnlog {

/// Raises BadInput when the times of --from and --till are none, or nothing lies between them.
void refuseBadTimes(const std::optional<double>& from, const std::optional<double>& till);

/// Raises BadInput when a record from `begin` to `end` has nothing between them.
void refuseTimesOutside(double begin, double end, const std::optional<double>& from,
                        const std::optional<double>& till);

/// Raises BadInput when a name of --data is none in these recordings, with the nearest one; `path` is the
/// file's.
void refuseUnknownData(const std::vector<RecordHead>& recordings, const std::vector<std::string>& names,
                       const std::string& path);

}  // namespace tarnlog
