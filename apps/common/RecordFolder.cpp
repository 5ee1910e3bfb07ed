#include "apps/common/RecordFolder.h"

#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"

namespace tarnlog {

void makeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw BadInput("--folder " + folder + ": " + error.message());
}

void useFolder(oTarnParameters& parameters, const std::string& folder) {
  makeFolder(folder);
  parameters.fileFolder = folder;
}

}  // namespace tarnlog
