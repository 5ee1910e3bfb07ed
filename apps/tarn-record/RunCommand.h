#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "apps/common/PublishOptions.h"
#include "apps/tarn-record/FileOptions.h"
#include "apps/tarn-record/Loudness.h"
#include "host/vehicle/Vehicle.h"

namespace tarnlog::record {

struct RunOptions {
  std::string vehicle;
  host::LinkOptions link;
  std::string config;
  FileOptions files;
  bool folderPerVehicle = false;
  std::optional<std::string> bootNumber;  ///< the file that boots are counted in
  std::optional<std::int32_t> duration;
  std::optional<std::int32_t> recordings;
  std::string mf4;  ///< "record": a measurement file for each recording; "all": one for the acquisition
  std::optional<std::string> samples;  ///< a file or pipe for JSON lines, or "-"
  bool live = false;                   ///< show the values on standard output
  PublishOptions publish;              ///< makes a file for the acquisition, too
  std::int32_t sync = 5;  ///< seconds from one sync of open files to the next; 0: only when they are closed
  Loudness loudness = Loudness::Usual;
};

/// Records until a limit, a signal or the configuration's stop ends it. Log lines, errors and how well each
/// recording went go to standard error, the path of each finished file to standard output, or to standard
/// error when samples or live values go there. Returns the exit code; raises BadInput and TarnErrors before
/// it starts.
int run(const RunOptions& options);

}  // namespace tarnlog::record
