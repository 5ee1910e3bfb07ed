#include "apps/common/RepairedCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "apps/common/BadInput.h"
#include "platform/text/Told.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBatch = 1024 * 1024;

std::string withoutLinks(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  return error ? path : target.string();
}

/// Whatever has this name is the copy of a repair that was killed: the original is locked.
std::string unused(const std::string& path) {
  ::unlink(path.c_str());
  return path;
}

/// A second name for the original. A file system without links gets it as the only one, for a moment.
std::string keepOriginal(const std::string& path) {
  for (int number = 1;; ++number) {
    std::string kept = path + ".bak" + (number == 1 ? std::string() : std::to_string(number));
    if (::link(path.c_str(), kept.c_str()) == 0) return kept;
    if (errno == EEXIST) continue;
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(kept, error))) continue;
    if (::rename(path.c_str(), kept.c_str()) != 0) throw systemError(kept, errno);
    return kept;
  }
}

}  // namespace

std::size_t readAt(const Descriptor& file, const std::string& path, std::uint64_t place, char* to,
                   std::size_t most) {
  ssize_t count = 0;
  do {
    count = ::pread(file.get(), to, most, static_cast<off_t>(place));
  } while (count < 0 && errno == EINTR);
  if (count < 0) throw systemError(path, errno);
  return static_cast<std::size_t>(count);
}

FileToRepair::FileToRepair(const std::string& path)
    : path_(path), place_(withoutLinks(path)), file_(place_, O_RDONLY | O_NONBLOCK) {
  struct stat status {};
  if (::fstat(file_.get(), &status) != 0 || !S_ISREG(status.st_mode))
    throw BadInput(Told::tr("{}: not a file that can be repaired", path));
  if (!file_.lock())
    throw BadInput(Told::tr("{}: is being written, repair it when its recording has ended", path));
  mode_ = status.st_mode;
  size_ = static_cast<std::uint64_t>(status.st_size);
}

RepairedCopy::RepairedCopy(const FileToRepair& original)
    : original_(original),
      path_(unused(original.place() + ".repairing")),
      file_(path_, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, 0600) {
  if (::fchmod(file_.get(), original.mode()) != 0) throw systemError(path_, errno);
}

RepairedCopy::~RepairedCopy() {
  if (!placed_) ::unlink(path_.c_str());
}

void RepairedCopy::add(std::string_view piece) {
  block_.append(piece);
  if (block_.size() >= kBatch) writeBlock();
}

void RepairedCopy::finish() {
  writeBlock();
  if (::fsync(file_.get()) != 0) throw systemError(path_, errno);
}

void RepairedCopy::overwrite(std::uint64_t offset, std::string_view bytes) {
  writeBlock();
  if (const int error = file_.overwrite(static_cast<off_t>(offset), bytes)) throw systemError(path_, error);
}

std::string RepairedCopy::take() {
  std::string kept = keepOriginal(original_.place());
  if (::rename(path_.c_str(), original_.place().c_str()) != 0) throw systemError(original_.place(), errno);
  placed_ = true;
  return kept;
}

void RepairedCopy::writeBlock() {
  if (file_.writeAll(block_) < block_.size()) throw systemError(path_, errno);
  block_.clear();
}

}  // namespace tarnlog
