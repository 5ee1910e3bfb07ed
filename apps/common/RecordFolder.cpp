#include "apps/common/RecordFolder.h"

#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"
#include "platform/files/FileSystem.h"

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

std::string folderNameOf(std::string_view vehicle) {
  constexpr std::size_t kLongest = 80;  // bytes; a record's path is to stay short enough for other systems
  constexpr std::string_view kRefused = "/\\:*?\"<>|";
  std::string name;
  for (const char c : vehicle) {
    const bool control = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    name += control || kRefused.find(c) != std::string_view::npos ? '_' : c;
  }
  if (name.size() > kLongest) {
    std::size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;  // no half character
    name.resize(end);
  }
  const std::size_t first = name.find_first_not_of(" .");
  if (first == std::string::npos) return "vehicle";
  return name.substr(first, name.find_last_not_of(" .") + 1 - first);
}

std::string folderOfVehicle(const std::string& folder, const host::VehicleDescription& vehicle,
                            const std::function<void(const std::string& why)>& tell) {
  std::string path = joinPath(folder, folderNameOf(vehicle.vin.empty() ? vehicle.name : vehicle.vin));
  std::error_code error;
  std::filesystem::create_directory(path, error);
  if (!error) return path;
  tell(path + ": " + error.message());
  return folder;
}

}  // namespace tarnlog
