#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/FileCalls.h"
#include "platform/files/SystemFileSystem.h"

namespace tarnlog::test {

/// Notes the calls that change the files of one folder, and tells what a power cut after any of them may
/// leave there. What was not synced is on the disk or is not, whatever came later; of a write also its first
/// half, but for one that replaces bytes of one sector only.
class PowerCut : public FileCalls {
 public:
  using Disk = std::map<std::string, std::string>;  ///< name to content

  /// What is in the folder now stays there.
  explicit PowerCut(const std::string& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      struct stat status {};
      ::stat(entry.path().c_str(), &status);
      const std::size_t file = fileOf_[status.st_ino] = nextFile_++;
      start_.contents[file] = SystemFileSystem().readAll(entry.path());
      start_.names[entry.path().filename()] = file;
    }
  }

  /// Noted so far.
  std::size_t calls() const {
    const std::lock_guard lock(mutex_);
    return steps_.size();
  }

  /// Calls `visit(disk)` with all that a power cut after the first `calls` calls may leave.
  template <class Visit>
  void forEachOutcome(std::size_t calls, Visit visit) const {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < calls; ++i)
      if (steps_[i].what != Step::Sync && !syncedBefore(i, calls)) open.push_back(i);
    std::vector<Fate> fates(calls, Fate::Whole);
    visitFates(calls, open, 0, fates, visit);
  }

  int open(const std::string& path, int flags, mode_t mode) override {
    const std::lock_guard lock(mutex_);
    const bool isNew = !std::filesystem::exists(path);
    const int fd = FileCalls::open(path, flags, mode);
    if (fd < 0 || !isNew) return fd;
    fileOf_[inodeOf(fd)] = nextFile_++;
    note({.what = Step::Name, .file = fileOf(fd), .name = nameOf(path)});
    return fd;
  }
  ssize_t write(int fd, std::string_view bytes) override {
    const std::lock_guard lock(mutex_);
    struct stat status {};
    ::fstat(fd, &status);
    return noteWrite(fd, status.st_size, bytes, FileCalls::write(fd, bytes));
  }
  ssize_t pwrite(int fd, std::string_view bytes, off_t offset) override {
    const std::lock_guard lock(mutex_);
    constexpr off_t kSector = 512;
    const ssize_t done = noteWrite(fd, offset, bytes, FileCalls::pwrite(fd, bytes, offset));
    if (done > 0) steps_.back().whole = offset / kSector == (offset + done - 1) / kSector;
    return done;
  }
  int ftruncate(int fd, off_t size) override {
    const std::lock_guard lock(mutex_);
    note({.what = Step::Cut, .file = fileOf(fd), .offset = static_cast<std::size_t>(size)});
    return FileCalls::ftruncate(fd, size);
  }
  int fdatasync(int fd) override { return noteSync(fd); }
  int fsync(int fd) override { return noteSync(fd); }
  int rename(const std::string& from, const std::string& to) override {
    const std::lock_guard lock(mutex_);
    note({.what = Step::Name, .file = inode(from), .name = nameOf(to), .oldName = nameOf(from)});
    return FileCalls::rename(from, to);
  }
  int unlink(const std::string& path) override {
    const std::lock_guard lock(mutex_);
    if (FileCalls::unlink(path) != 0) return -1;
    note({.what = Step::Name, .file = kFolder, .oldName = nameOf(path)});
    return 0;
  }

 private:
  enum class Fate { Lost, Half, Whole };
  struct Step {
    enum What { Name, Write, Cut, Sync } what;
    std::size_t file;  ///< for names without one, and for syncs of the folder: kFolder
    std::size_t offset = 0;
    std::string bytes = {};
    std::string name = {};     ///< given to the file
    std::string oldName = {};  ///< taken away
    bool whole = false;        ///< done or not, never half
  };
  struct State {
    std::map<std::size_t, std::string> contents;
    std::map<std::string, std::size_t> names;
  };
  static constexpr std::size_t kFolder = 0;

  static std::string nameOf(const std::string& path) { return std::filesystem::path(path).filename(); }
  static ino_t inodeOf(int fd) {
    struct stat status {};
    ::fstat(fd, &status);
    return status.st_ino;
  }
  std::size_t inode(const std::string& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return fileOf_[status.st_ino];
  }
  std::size_t fileOf(int fd) { return fileOf_[inodeOf(fd)]; }
  void note(Step step) { steps_.push_back(std::move(step)); }

  ssize_t noteWrite(int fd, off_t offset, std::string_view bytes, ssize_t done) {
    if (done > 0)
      note({.what = Step::Write,
            .file = fileOf(fd),
            .offset = static_cast<std::size_t>(offset),
            .bytes = std::string(bytes.substr(0, static_cast<std::size_t>(done)))});
    return done;
  }
  int noteSync(int fd) {
    const std::lock_guard lock(mutex_);
    struct stat status {};
    ::fstat(fd, &status);
    note({.what = Step::Sync, .file = S_ISDIR(status.st_mode) ? kFolder : fileOf(fd)});
    return 0;
  }

  bool syncedBefore(std::size_t step, std::size_t calls) const {
    const std::size_t file = steps_[step].what == Step::Name ? kFolder : steps_[step].file;
    for (std::size_t i = step + 1; i < calls; ++i)
      if (steps_[i].what == Step::Sync && steps_[i].file == file) return true;
    return false;
  }

  template <class Visit>
  void visitFates(std::size_t calls, const std::vector<std::size_t>& open, std::size_t next,
                  std::vector<Fate>& fates, Visit& visit) const {
    if (next == open.size()) return visit(diskAfter(calls, fates));
    for (const Fate fate : {Fate::Lost, Fate::Half, Fate::Whole}) {
      if (fate == Fate::Half && (steps_[open[next]].what != Step::Write || steps_[open[next]].whole))
        continue;
      fates[open[next]] = fate;
      visitFates(calls, open, next + 1, fates, visit);
    }
  }

  Disk diskAfter(std::size_t calls, const std::vector<Fate>& fates) const {
    State state = start_;
    for (std::size_t i = 0; i < calls; ++i)
      if (fates[i] != Fate::Lost) apply(steps_[i], fates[i], state);
    Disk disk;
    for (const auto& [name, file] : state.names) disk[name] = state.contents[file];
    return disk;
  }

  static void apply(const Step& step, Fate fate, State& state) {
    std::string& content = state.contents[step.file];
    if (step.what == Step::Cut) content.resize(step.offset);
    if (step.what == Step::Name) {
      state.names.erase(step.oldName);
      if (!step.name.empty()) state.names[step.name] = step.file;
    }
    if (step.what != Step::Write) return;
    const std::size_t count = fate == Fate::Half ? step.bytes.size() / 2 : step.bytes.size();
    if (content.size() < step.offset + count) content.resize(step.offset + count);
    content.replace(step.offset, count, step.bytes, 0, count);
  }

  mutable std::mutex mutex_;
  std::vector<Step> steps_;
  State start_;
  std::map<ino_t, std::size_t> fileOf_;
  std::size_t nextFile_ = kFolder + 1;
};

}  // namespace tarnlog::test
