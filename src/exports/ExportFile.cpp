#include "exports/ExportFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace tarnlog {

namespace {

/// Where the bytes go: behind links, so that these stay.
std::string placeOf(const std::string& path) {
  std::error_code error;
  const auto place = std::filesystem::weakly_canonical(path, error);
  return error ? path : place.string();
}

bool isReplaceable(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  return status.type() == std::filesystem::file_type::not_found ||
         (status.type() == std::filesystem::file_type::regular && !path.starts_with("/dev/") &&
          !path.starts_with("/proc/"));
}

}  // namespace

ExportFile::ExportFile(const std::string& path) : path_(path) {
  // Opened a second time, a file that it is redirected to would be written from its beginning.
  if (path == kStandardOutput) return;
  if (!isReplaceable(path)) {
    file_ = std::make_unique<Descriptor>(path_, O_WRONLY);
    return;
  }
  path_ = placeOf(path);
  beside_ = path_ + ".exporting";
  ::unlink(beside_.c_str());
  file_ = std::make_unique<Descriptor>(beside_, O_WRONLY | O_CREAT | O_EXCL);
}

ExportFile::~ExportFile() {
  if (!beside_.empty()) ::unlink(beside_.c_str());
}

void ExportFile::write(std::string_view bytes) {
  const int descriptor = file_ == nullptr ? STDOUT_FILENO : file_->get();
  if (writeAll(descriptor, bytes) < bytes.size()) throw systemError(path_, errno);
}

void ExportFile::overwrite(std::uint64_t offset, std::string_view bytes) {
  if (const int error = file_->overwrite(static_cast<off_t>(offset), bytes)) throw systemError(path_, error);
}

void ExportFile::finish() {
  if (beside_.empty()) return;
  if (std::rename(beside_.c_str(), path_.c_str()) != 0) throw systemError(path_, errno);
  beside_.clear();
}

}  // namespace tarnlog
