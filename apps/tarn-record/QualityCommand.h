#pragma once

#include <string>
#include <vector>

namespace tarnlog::record {

struct FileQualities {
  std::vector<std::string> recordings;  ///< how well each went, a line without its end
  std::string missing;                  ///< one line for each thing that the file lacks
};

struct QualityReportOfFile {
  std::string lines;  ///< one for each recording, with the path
  std::string missing;
};

/// How well the recordings in a record or measurement file went: what was counted while it was recorded,
/// where the file holds that, else what can be counted in it. Raises BadInput or a TarnError when it cannot
/// be read.
FileQualities qualitiesOf(const std::string& path);
/// The same as text.
QualityReportOfFile qualityOfFile(const std::string& path);

}  // namespace tarnlog::record
