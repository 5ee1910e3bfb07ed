#include "apps/tarn-record/OutputFile.h"

#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"
#include "exports/ExportFile.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

std::string outputPath(const std::string& given) {
  return given == "-" ? ExportFile::kStandardOutput : given;
}

bool isStandardOutput(const std::string& path) { return path == ExportFile::kStandardOutput; }

void refuseInput(const std::string& output, const std::string& input) {
  std::error_code none;
  if (std::filesystem::equivalent(output, input, none))
    throw BadInput(Told::tr("--output {}: this is the input {}, expected another file", output, input));
}

}  // namespace tarnlog::record
