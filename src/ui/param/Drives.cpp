#include "ui/param/Drives.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string_view>

namespace tarnlog {

namespace {

bool startsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

bool isInside(std::string_view folder, std::string_view parent) {
  if (parent == "/") return startsWith(folder, "/");
  return startsWith(folder, parent) && (folder.size() == parent.size() || folder[parent.size()] == '/');
}

/// No pseudo file systems, no packed applications, no boot partitions.
bool holdsRecords(const MountedFileSystem& mounted) {
  if (mounted.folder == "/") return true;
  if (isInside(mounted.folder, "/boot") || isInside(mounted.folder, "/snap")) return false;
  const bool disk = startsWith(mounted.device, "/dev/") && !startsWith(mounted.device, "/dev/loop");
  const bool share = startsWith(mounted.type, "nfs") || mounted.type == "cifs" || mounted.type == "smb3" ||
                     mounted.type == "fuse.sshfs";
  return disk || share;
}

}  // namespace

std::vector<std::string> driveFolders(const std::vector<MountedFileSystem>& mounted) {
  std::map<std::string, std::string> folderOfDevice;
  for (const MountedFileSystem& each : mounted) {
    if (!holdsRecords(each)) continue;
    std::string& folder = folderOfDevice[each.device];
    if (folder.empty() || each.folder.size() < folder.size()) folder = each.folder;
  }
  std::vector<std::string> folders;
  folders.reserve(folderOfDevice.size());
  for (const auto& [device, folder] : folderOfDevice) folders.push_back(folder);
  std::sort(folders.begin(), folders.end());
  return folders;
}

int driveOf(const std::string& folder, const std::vector<std::string>& drives) {
  int found = -1;
  for (std::size_t i = 0; i < drives.size(); ++i)
    if (isInside(folder, drives[i]) &&
        (found < 0 || drives[i].size() > drives[static_cast<std::size_t>(found)].size()))
      found = static_cast<int>(i);
  return found;
}

}  // namespace tarnlog
