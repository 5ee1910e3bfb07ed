#include "apps/common/UnfinishedRecords.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "mdf/Mdf.h"
#include "platform/base/TarnError.h"
#include "platform/files/Descriptor.h"
#include "samples/MdfHead.h"

namespace tarnlog {

namespace {

namespace fs = std::filesystem;

constexpr off_t kLook = 4096;

std::string partOf(const Descriptor& file, off_t from) {
  std::string part(static_cast<std::size_t>(kLook), '\0');
  const ssize_t count = ::pread(file.get(), part.data(), part.size(), std::max(from, off_t{0}));
  part.resize(static_cast<std::size_t>(std::max(count, ssize_t{0})));
  return part;
}

/// Of those that this program wrote.
bool isUnfinishedMeasurement(std::string_view beginning) {
  return beginning.starts_with(mdf::kUnfinished) &&
         beginning.substr(mdf::kProgramAt).starts_with(kMdfProgram);
}

bool isUnfinishedXml(std::string_view beginning, std::string_view end) {
  return beginning.find("<Tarnlog2000") != std::string_view::npos &&
         end.find("</Tarnlog2000>") == std::string_view::npos;
}

bool unfinished(const std::string& path) {
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  const std::string beginning = partOf(file, 0);
  const bool lacksEnd = path.ends_with(".xml")
                            ? isUnfinishedXml(beginning, partOf(file, status.st_size - kLook))
                            : isUnfinishedMeasurement(beginning);
  return lacksEnd && file.lock();
}

}  // namespace

std::vector<std::string> unfinishedRecords(const std::string& folder) {
  std::vector<std::pair<fs::file_time_type, std::string>> found;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path extension = entry->path().extension();
    if (extension != ".xml" && extension != ".mf4") continue;
    bool lacksEnd = false;
    skipOnFailure([&] { lacksEnd = unfinished(entry->path().string()); });
    std::error_code unknown;
    if (lacksEnd) found.emplace_back(entry->last_write_time(unknown), entry->path().string());
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> paths;
  paths.reserve(found.size());
  for (auto& [time, path] : found) paths.push_back(std::move(path));
  return paths;
}

}  // namespace tarnlog
