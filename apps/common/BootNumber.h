#pragma once

#include <string>

#include "platform/files/FileSystem.h"

namespace tarnlog {

/// Where Linux tells which boot this is: another text after each.
inline constexpr const char* kBootId = "/proc/sys/kernel/random/boot_id";

/// Counts this computer's boots in a file: the same number all through a boot, one more in the next. A
/// computer whose clock has no battery begins each boot with the same date; the number keeps what it writes
/// apart. From 1; raises a TarnError when the file cannot be read or written, or holds something else.
int countBoot(FileSystem& files, const std::string& path, const std::string& bootId = kBootId);

/// "boot0012_", to begin file names with.
std::string bootPrefix(int number);

}  // namespace tarnlog
