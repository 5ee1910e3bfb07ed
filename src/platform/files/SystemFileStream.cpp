#include "platform/files/SystemFileStream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <utility>

namespace tarnlog {

namespace {

/// Nanoseconds of the system's coarse clock: it goes on every few milliseconds and costs no system call.
std::int64_t coarseTime() {
  struct timespec time {};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

int flagsFor(SystemFileStream::Opening opening) {
  return O_WRONLY | O_CREAT | O_APPEND | (opening == SystemFileStream::Opening::New ? O_EXCL : 0);
}

Descriptor open(const std::string& path, SystemFileStream::Opening opening, FileCalls& calls) {
  try {
    return Descriptor(path, flagsFor(opening), 0666, calls);
  } catch (const TarnError& error) {
    if (error.number() != EEXIST) throw;
    throw NameTaken(error.number(), error.source(), error.description());
  }
}

bool sameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

SystemFileStream::SystemFileStream(std::string path, Opening opening, Tell tell, FileCalls& calls,
                                   SyncThread& syncing)
    : path_(std::move(path)),
      file_(open(path_, opening, calls)),
      tell_(std::move(tell)),
      calls_(calls),
      syncing_(syncing),
      ofLines_(opening == Opening::Append) {
  takeFile(opening);
  beginSyncing();
}

SystemFileStream::~SystemFileStream() {
  skipOnFailure([this] {
    if (!owed_.empty()) writeOrOwe({});
    look();
    if (rowOwed_) ++lost_;
    if (failing_) removeIfEmpty();
    endSyncing();
    endFailing(true);
  });
}

/// Without a descriptor or a thread for it, the file is written all the same.
void SystemFileStream::beginSyncing() {
  if (!regular_) return;
  try {
    synced_ = syncing_.add(file_, path_, wasEmpty_);
  } catch (const std::exception& error) {
    tellNotSynced(error.what());
  }
}

/// The lock must not last for as long as a sync that does not come back.
void SystemFileStream::endSyncing() {
  if (!synced_) return;
  if (removed_)
    syncing_.remove(synced_);
  else
    syncing_.letGo(synced_);
  file_.unlock();
}

void SystemFileStream::noteChange() {
  if (synced_) synced_->changed(rows_);
}

void SystemFileStream::tellNotSynced(const std::string& why) {
  tell_({.kind = WriteTrouble::Kind::NotSynced, .path = path_, .why = why});
}

/// Devices and pipes belong to nobody. A file that somebody else removed before it was locked is not ours.
void SystemFileStream::takeFile(Opening opening) {
  struct stat status {};
  regular_ = ::fstat(file_.get(), &status) == 0 && S_ISREG(status.st_mode);
  if (!regular_) return;
  const bool ours = file_.lock();
  if (!ours && opening == Opening::New) calls_.unlink(path_);
  struct stat named {};
  if (!ours || ::fstat(file_.get(), &status) != 0 || ::stat(path_.c_str(), &named) != 0 ||
      !sameFile(status, named))
    throw NameTaken(EWOULDBLOCK, "FileSystem", path_ + ": another program is writing this file");
  size_ = status.st_size;
  wasEmpty_ = size_ == 0;
  hasName_ = status.st_nlink != 0;
  if (!wasEmpty_) skipOnFailure([this] { endLastLine(); });
}

/// What a killed program or a power cut left behind may end within a line. An XML record needs no such end,
/// and a measurement file would be spoilt by it.
void SystemFileStream::endLastLine() {
  if (!ofLines_) return;
  const Descriptor reading(path_, O_RDONLY);
  char last = 0;
  if (::pread(reading.get(), &last, 1, size_ - 1) == 1 && last != '\n') owed_.insert(0, "\r\n");
}

void SystemFileStream::write(std::string_view row) {
  newestInPart_ = false;
  if (const int error = put(row)) raise(error, newestInPart_);
  ++rows_;
  noteChange();
  if (removed_)
    ++lost_;
  else
    endFailing(false);
}

void SystemFileStream::writeOrOwe(std::string_view bytes) {
  owed_.append(bytes);
  if (const int error = put({}))
    beginFailing(std::strerror(error));
  else if (!removed_)
    endFailing(false);
  noteChange();
}

void SystemFileStream::writeAt(std::uint64_t offset, std::string_view bytes) {
  if (const int error = file_.overwrite(static_cast<off_t>(offset), bytes)) raise(error);
  noteChange();
}

void SystemFileStream::sync() {
  if (!synced_) return;
  const SyncThread::Outcome outcome = syncing_.sync(synced_);
  if (outcome.isNews) tellNotSynced(outcome.why);
  if (outcome.error != 0) throw TarnError(outcome.error, "FileSystem", path_ + ": " + outcome.why);
}

void SystemFileStream::raise(int error, bool inPart) {
  noteChange();
  beginFailing(std::strerror(error));
  if (inPart) throw WrittenInPart(systemError(path_, error));
  throw systemError(path_, error);
}

/// What is owed and the row, as one write. Returns errno, or 0.
int SystemFileStream::put(std::string_view row) {
  if (const std::int64_t now = coarseTime(); now != lookedAt_) {
    lookedAt_ = now;
    look();
  }
  const std::size_t owed = owed_.size();
  if (owed != 0) owed_.append(row);
  const std::string_view whole = owed == 0 ? row : std::string_view(owed_);
  const std::size_t done = file_.writeAll(whole);
  if (done < whole.size()) {
    const int error = errno;
    keepRest(whole, owed, takeBack(done) ? 0 : done);
    return error;
  }
  size_ += static_cast<std::int64_t>(done);
  owed_.clear();
  rowOwed_ = false;
  return 0;
}

/// Of `whole`, which begins with what was owed, `out` bytes are in the file for good. A row that has begun
/// there is owed from now on; one that has not is lost.
void SystemFileStream::keepRest(std::string_view whole, std::size_t owed, std::size_t out) {
  size_ += static_cast<std::int64_t>(out);
  if (owed != 0 && out >= owed) rowOwed_ = false;
  newestInPart_ = out > owed;
  if (newestInPart_)
    rowOwed_ = true;
  else if (whole.size() > owed)
    ++lost_;
  owed_ = std::string(out > owed ? whole.substr(out) : whole.substr(out, owed - out));
}

bool SystemFileStream::takeBack(std::size_t done) {
  struct stat status {};
  return done == 0 || (regular_ && ::fstat(file_.get(), &status) == 0 &&
                       calls_.ftruncate(file_.get(), status.st_size - static_cast<off_t>(done)) == 0);
}

void SystemFileStream::beginFailing(const std::string& why) {
  if (std::exchange(failing_, true)) return;
  tell_({.kind = WriteTrouble::Kind::Begun, .path = path_, .why = why});
}

void SystemFileStream::endFailing(bool closed) {
  if (!std::exchange(failing_, false)) return;
  lostInFile_ += lost_;
  tell_({.kind = WriteTrouble::Kind::Ended,
         .path = path_,
         .lostRows = std::exchange(lost_, 0),
         .lostInFile = lostInFile_,
         .closed = closed});
}

/// What other programs do to the file fails no write, so somebody must be told: rows in a file without a name
/// are lost when it closes. Where the file was cut short, the cut line ends before the next row. A look costs
/// as much as a write: rows that follow each other within one step of the coarse clock share one.
void SystemFileStream::look() {
  struct stat status {};
  if (!regular_ || removed_ || ::fstat(file_.get(), &status) != 0) return;
  if (hasName_ && status.st_nlink == 0) {
    removed_ = true;
    lost_ += rows_;
    beginFailing("the file was removed while it was being written");
  } else if (status.st_size < size_) {
    noteCut(status.st_size);
  }
  size_ = status.st_size;
}

void SystemFileStream::noteCut(std::int64_t now) {
  tell_({.kind = WriteTrouble::Kind::CutShort,
         .path = path_,
         .why = std::to_string(size_ - now) + " bytes were cut off by another program"});
  size_ = now;
  cutShort_ = true;
  if (now > 0) skipOnFailure([this] { endLastLine(); });
}

void SystemFileStream::removeIfEmpty() {
  struct stat ours {};
  struct stat named {};
  if (regular_ && wasEmpty_ && ::fstat(file_.get(), &ours) == 0 && ours.st_size == 0 &&
      ::lstat(path_.c_str(), &named) == 0 && sameFile(ours, named))
    calls_.unlink(path_);
}

}  // namespace tarnlog
