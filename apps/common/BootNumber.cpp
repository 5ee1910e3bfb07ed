#include "apps/common/BootNumber.h"

#include <fmt/format.h>

#include <charconv>
#include <string_view>

#include "platform/base/TarnError.h"
#include "platform/text/TakeUntil.h"

namespace tarnlog {

namespace {

struct Boot {
  int number = 0;
  std::string id;
};

std::string firstLine(const std::string& text) {
  std::string_view rest = text;
  return std::string(takeUntil(rest, '\n'));
}

/// A line of number and id, as in "12 0f3c...".
Boot readBoot(const FileSystem& files, const std::string& path) {
  const std::string line = firstLine(files.readAll(path));
  std::string_view id = line;
  const std::string_view digits = takeUntil(id, ' ');
  Boot boot{0, std::string(id)};
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), boot.number);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size() || boot.number < 1 || id.empty())
    throw TarnError(1, "countBoot", path + ": expected the number of a boot and its identifier");
  return boot;
}

}  // namespace

int countBoot(FileSystem& files, const std::string& path, const std::string& bootId) {
  const std::string id = firstLine(files.readAll(bootId));
  const Boot last = files.fileExists(path) ? readBoot(files, path) : Boot{};
  if (last.id == id) return last.number;
  files.replace(path, fmt::format("{} {}\n", last.number + 1, id));
  return last.number + 1;
}

std::string bootPrefix(int number) { return fmt::format("boot{:04}_", number); }

}  // namespace tarnlog
