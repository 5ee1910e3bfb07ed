#include "platform/files/SystemFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/Descriptor.h"

namespace tarnlog {

namespace {

/// The file that a symbolic link leads to, so that replacing a linked file keeps the link.
std::string linkTarget(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  return error ? path : target.string();
}

/// Standard output or standard error, when the path names the file, terminal or pipe that they go to; -1
/// otherwise.
int standardStreamAt(const struct stat& target) {
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
    if (struct stat status{};
        ::fstat(stream, &status) == 0 && status.st_dev == target.st_dev && status.st_ino == target.st_ino)
      return stream;
  return -1;
}

void writeThrough(const std::string& path, std::string_view bytes) {
  const Descriptor file(path, O_WRONLY | O_NOCTTY);
  if (file.writeAll(bytes) < bytes.size()) throw systemError(path, errno);
}

/// What cannot be replaced: a device, a pipe, or where this program's output goes. True when it has been
/// written to.
bool writtenThrough(const std::string& path, std::string_view bytes) {
  struct stat target {};
  if (::stat(path.c_str(), &target) != 0) return false;
  if (const int stream = standardStreamAt(target); stream >= 0) {
    if (writeAll(stream, bytes) < bytes.size()) throw systemError(path, errno);
    return true;
  }
  if (S_ISREG(target.st_mode)) return false;
  writeThrough(path, bytes);
  return true;
}

constexpr const char* kBeside = ".new-";

/// Removes what killed programs left beside a file that they were replacing. The number at the end is that of
/// the process; this one replaces one file at a time.
void removeLeftovers(const std::string& target, FileCalls& calls) {
  const std::filesystem::path path(target);
  const std::string prefix = path.filename().string() + kBeside;
  std::error_code error;
  const auto folder = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with(prefix)) continue;
    pid_t process = 0;
    const auto [rest, bad] = std::from_chars(name.data() + prefix.size(), name.data() + name.size(), process);
    if (bad != std::errc{} || rest != name.data() + name.size() || process <= 0) continue;
    const bool gone = process == ::getpid() || (::kill(process, 0) != 0 && errno == ESRCH);
    if (gone) calls.unlink(entry->path().string());
  }
}

/// A new file with the mode of the one that it is to replace. What has been replaced must be whole after a
/// power cut: the bytes reach the disk before the name does.
void writeBeside(const std::string& beside, const std::string& target, std::string_view bytes,
                 FileCalls& calls) {
  const Descriptor file(beside, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666, calls);
  if (struct stat old{}; ::stat(target.c_str(), &old) == 0 && ::fchmod(file.get(), old.st_mode) != 0)
    throw systemError(beside, errno);
  if (file.writeAll(bytes) < bytes.size() || calls.fsync(file.get()) != 0) throw systemError(beside, errno);
}

constexpr std::size_t kBlock = 65536;
constexpr std::size_t kMostOfFile = std::size_t{1} << 30;
constexpr std::size_t kMostOfDevice = std::size_t{64} << 20;  ///< or of a pipe: they may never end

/// What is left in the file, `most` bytes of it.
std::string readUpTo(const Descriptor& file, const std::string& path, std::size_t most,
                     std::size_t expected = 0) {
  std::string bytes;
  bytes.reserve(expected);
  std::array<char, kBlock> block{};
  while (bytes.size() < most) {
    const ssize_t count = ::read(file.get(), block.data(), std::min(block.size(), most - bytes.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw systemError(path, errno);
    if (count == 0) break;
    bytes.append(block.data(), static_cast<std::size_t>(count));
  }
  return bytes;
}

}  // namespace

SystemFileSystem::SystemFileSystem(std::shared_ptr<FileCalls> calls, std::chrono::milliseconds patience)
    : calls_(std::move(calls)), syncing_(calls_, patience) {}

void SystemFileSystem::tell(const std::vector<SyncThread::Outcome>& troubles) const {
  for (const SyncThread::Outcome& outcome : troubles)
    tellTrouble({.kind = WriteTrouble::Kind::NotSynced, .path = outcome.path, .why = outcome.why});
}

bool SystemFileSystem::folderExists(const std::string& path) const {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

bool SystemFileSystem::folderWritable(const std::string& path) const {
  return folderExists(path) && ::access(path.c_str(), W_OK | X_OK) == 0;
}

bool SystemFileSystem::fileExists(const std::string& path) const {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

std::string SystemFileSystem::currentFolder() const {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::current_path(error);
  return error ? "." : folder.string();
}

std::unique_ptr<FileStream> SystemFileSystem::openForAppending(const std::string& path) {
  return open(path, SystemFileStream::Opening::Append);
}

std::unique_ptr<FileStream> SystemFileSystem::create(const std::string& path) {
  return open(path, SystemFileStream::Opening::New);
}

std::unique_ptr<FileStream> SystemFileSystem::open(const std::string& path,
                                                   SystemFileStream::Opening opening) {
  return std::make_unique<SystemFileStream>(
      path, opening, [this](const WriteTrouble& trouble) { tellTrouble(trouble); }, *calls_, syncing_);
}

void SystemFileSystem::replace(const std::string& path, std::string_view bytes) {
  if (writtenThrough(path, bytes)) return;
  const std::string target = linkTarget(path);
  const std::string beside = target + kBeside + std::to_string(::getpid());
  removeLeftovers(target, *calls_);
  try {
    writeBeside(beside, target, bytes, *calls_);
    if (calls_->rename(beside, target) != 0) throw systemError(path, errno);
    if (const int error = syncFolder(folderOf(target), *calls_)) throw systemError(path, error);
  } catch (const TarnError& error) {
    if (error.number() != EEXIST) calls_->unlink(beside);
    throw TarnError(error.number(), error.source(), path + ": " + std::strerror(error.number()));
  }
}

std::string SystemFileSystem::readAll(const std::string& path) const {
  const Descriptor file(path, O_RDONLY);
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) throw systemError(path, errno);
  const bool regular = S_ISREG(status.st_mode);
  const std::size_t most = regular ? kMostOfFile : kMostOfDevice;
  const std::size_t size = regular ? static_cast<std::size_t>(status.st_size) : 0;
  std::string bytes;
  if (size <= most) bytes = readUpTo(file, path, most + 1, size);
  if (size > most || bytes.size() > most)
    throw TarnError(EFBIG, "FileSystem",
                    path + (regular ? ": is larger than 1 GiB, which no file read here is"
                                    : ": gives more than 64 MiB, so much is read from regular files only"));
  return bytes;
}

std::string SystemFileSystem::readBeginning(const std::string& path, std::size_t most) const {
  return readUpTo(Descriptor(path, O_RDONLY), path, most);
}

}  // namespace tarnlog
