#pragma once

#include <string>

namespace tarnlog::record {

struct QualityReportOfFile {
  std::string lines;    ///< one for each recording
  std::string missing;  ///< one for each thing that the file lacks
};

/// How well the recordings in a record or measurement file went: what was counted while it was recorded,
/// where the file holds that, else what can be counted in it. Raises BadInput or a TarnError when it cannot
/// be read.
QualityReportOfFile qualityOfFile(const std::string& path);

}  // namespace tarnlog::record
