#include "apps/common/RecordFolder.h"

#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"

namespace tarnlog {

void useFolder(oTarnParameters& parameters, const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw BadInput("--folder " + folder + ": " + error.message());
  parameters.fileFolder = folder;
}

}  // namespace tarnlog
