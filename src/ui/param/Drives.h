#pragma once

#include <string>
#include <vector>

/// Mounted file systems take the place of drives.
namespace tarnlog {

struct MountedFileSystem {
  std::string folder;  ///< where it is mounted
  std::string device;  ///< "/dev/sda1", "server:/share", "tmpfs"
  std::string type;    ///< "ext4", "nfs4", "tmpfs"
};

/// The folders of the file systems that a user may want to record on: disks, sticks and network shares; each
/// device once, by its shortest folder. Sorted.
std::vector<std::string> driveFolders(const std::vector<MountedFileSystem>& mounted);

/// Position of the drive that holds the folder, or -1.
int driveOf(const std::string& folder, const std::vector<std::string>& drives);

}  // namespace tarnlog
