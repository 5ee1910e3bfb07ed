#include "apps/tarn-record/OutputFile.h"

#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"

namespace tarnlog::record {

namespace {

constexpr const char* kStandardOutput = "/dev/stdout";

}  // namespace

std::string outputPath(const std::string& given) { return given == "-" ? kStandardOutput : given; }

bool isStandardOutput(const std::string& path) { return path == kStandardOutput; }

void refuseInput(const std::string& output, const std::string& input) {
  std::error_code none;
  if (std::filesystem::equivalent(output, input, none))
    throw BadInput("--output " + output + ": this is the input " + input + ", expected another file");
}

}  // namespace tarnlog::record
