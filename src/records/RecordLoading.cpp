#include "records/RecordLoading.h"

#include <algorithm>
#include <new>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "records/RecordWalk.h"

namespace tarnlog {

namespace {

using namespace std::chrono_literals;

constexpr auto kSpacing = 60ms;   ///< of what is published
constexpr auto kLooking = 100ms;  ///< between two looks at a file that may grow
/// A table of very many columns takes long to copy: nine tenths of the time are for reading.
constexpr int kCopyingPart = 10;

constexpr int kTries = 20;  ///< to read on

struct GivenUp {};

std::string baseName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::int64_t rowsOf(const RecordTable& table) {
  return std::accumulate(
      table.recordings.begin(), table.recordings.end(), std::int64_t{0},
      [](std::int64_t sum, const TableRecording& recording) { return sum + recording.rows(); });
}

/// Whether nothing came since.
bool isSame(const RecordTable& a, const RecordTable& b) {
  return a.recordings.size() == b.recordings.size() && rowsOf(a) == rowsOf(b) && a.bytes == b.bytes &&
         a.bytesRead == b.bytesRead && a.complete == b.complete && a.missing == b.missing;
}

/// Whoever looks at the older one knows its columns by their places. Fewer recordings may come of a header
/// that is half written, which is tried again.
void refuseOtherPlaces(const RecordTable& older, const RecordTable& newer) {
  if (newer.recordings.size() < older.recordings.size())
    throw TarnError(1, "RecordLoading", "has fewer recordings than before: open it again");
  const auto sameColumns = [](const TableGroup& a, const TableGroup& b) {
    return a.columns.size() == b.columns.size();
  };
  for (std::size_t i = 0; i < older.recordings.size(); ++i)
    if (!std::ranges::equal(older.recordings[i].groups, newer.recordings[i].groups, sameColumns))
      throw std::runtime_error("has other data now than when it was opened: open it again");
}

std::string withPath(const std::string& path, const std::string& description) {
  return description.starts_with(path) ? description : path + ": " + description;
}

RecordTable readWhole(const std::string& path, const ReadableFile& file, TableReader& reader) {
  reader.readOn();
  RecordTable table = std::move(*reader.table());
  table.path = path;
  table.bytes = table.bytesRead = file.size();
  table.complete = true;
  return table;
}

}  // namespace

RecordTable loadRecord(const std::string& path) {
  const SystemReadableFile file(path);
  return readWhole(path, file, *openTable(file, baseName(path), [] {}));
}

RecordTable loadForeignTable(const std::string& path, const ForeignTableChoice& choice) {
  const SystemReadableFile file(path);
  return readWhole(path, file, *openTable(file, choice, [] {}));
}

RecordLoading::RecordLoading(std::string path) : path_(std::move(path)), thread_([this] { run(); }) {}

RecordLoading::RecordLoading(std::string path, ForeignTableChoice choice)
    : path_(std::move(path)), choice_(choice), thread_([this] { run(); }) {}

RecordLoading::~RecordLoading() {
  {
    const std::lock_guard lock(mutex_);
    givenUp_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

RecordLoading::State RecordLoading::state() const {
  const std::lock_guard lock(mutex_);
  return state_;
}

double RecordLoading::progress() const {
  const std::lock_guard lock(mutex_);
  return progress_;
}

std::shared_ptr<const RecordTable> RecordLoading::newest() const {
  const std::lock_guard lock(mutex_);
  return newest_;
}

std::string RecordLoading::failure() const {
  const std::lock_guard lock(mutex_);
  return failure_;
}

bool RecordLoading::isForeignTable() const {
  const std::lock_guard lock(mutex_);
  return foreign_;
}

void RecordLoading::run() {
  try {
    if (!readAll()) return;
    while (waitAndReadOn()) {
    }
  } catch (const GivenUp&) {
    // Nobody looks any more.
  } catch (const std::bad_alloc&) {
    fail("it needs more memory than there is");
  } catch (const std::exception& error) {
    fail(error.what());
  }
}

std::unique_ptr<TableReader> RecordLoading::open() {
  const auto pausing = [this] { pause(); };
  if (choice_) return openTable(*file_, *choice_, pausing);
  try {
    return openTable(*file_, baseName(path_), pausing);
  } catch (const NotARecord&) {
    const bool foreign = skipOnFailure([this] { lookAtForeignTable(*file_); });
    const std::lock_guard lock(mutex_);
    foreign_ = foreign;
    throw;
  }
}

/// Whether the file may grow.
bool RecordLoading::readAll() {
  file_ = std::make_unique<FollowedFile>(path_);
  reader_ = open();
  reader_->readOn();
  complete_ = true;
  publish();
  const bool follows = reader_->isOpenEnded();
  setState(follows ? State::Following : State::Ended);
  return follows;
}

/// Whether it may grow further.
bool RecordLoading::waitAndReadOn() {
  {
    std::unique_lock lock(mutex_);
    if (wake_.wait_for(lock, kLooking, [this] { return givenUp_; })) return false;
  }
  using Change = FollowedFile::Change;
  switch (file_->look()) {
    case Change::None:
      // What was written in the moment of the last look may not have been seen.
      return std::exchange(settled_, failures_ == 0) || readOn();
    case Change::Changed:
      settled_ = false;
      return readOn();
    case Change::Shrank:
      end("the file became shorter while it was looked at: what was read before is kept");
      break;
    case Change::Removed:
      end("the file was removed while it was looked at: what was read before is kept");
      break;
    case Change::Replaced:
      end("another file took the place of this one while it was looked at: what was read before is kept");
      break;
  }
  return false;
}

/// Whether it may grow further. What cannot be read may be half written: it is tried again.
bool RecordLoading::readOn() {
  complete_ = false;
  next_ = std::max(next_, Clock::now() + kSpacing);  // what little came is published when all of it is there
  try {
    reader_->readOn();
    complete_ = true;
    publish();
    failures_ = 0;
  } catch (const TarnError&) {
    if (++failures_ == kTries) throw;
    return true;
  }
  if (reader_->isOpenEnded()) return true;
  setState(State::Ended);
  return false;
}

void RecordLoading::end(const std::string& why) {
  troubles_.push_back(why);
  publish();
  setState(State::Ended);
}

void RecordLoading::fail(const std::string& why) {
  const std::lock_guard lock(mutex_);
  failure_ = withPath(path_, why);
  state_ = State::Failed;
}

void RecordLoading::setState(State state) {
  const std::lock_guard lock(mutex_);
  state_ = state;
}

void RecordLoading::pause() {
  {
    const std::lock_guard lock(mutex_);
    if (givenUp_) throw GivenUp();
  }
  if (Clock::now() >= next_) publish();
}

void RecordLoading::publish() {
  const Clock::time_point begin = Clock::now();
  std::shared_ptr<RecordTable> table = reader_ == nullptr ? nullptr : reader_->table();
  if (table == nullptr) return;
  table->path = path_;
  table->bytesRead = reader_->bytesRead();
  table->bytes = file_->size();
  table->complete = complete_;
  table->missing.insert(table->missing.end(), troubles_.begin(), troubles_.end());
  const double progress = complete_ ? 1
                                    : static_cast<double>(table->bytesRead) /
                                          static_cast<double>(std::max<std::uint64_t>(table->bytes, 1));
  if (newest_ != nullptr && isSame(*newest_, *table)) return;
  if (newest_ != nullptr) refuseOtherPlaces(*newest_, *table);
  std::shared_ptr<const RecordTable> published = std::move(table);
  {
    const std::lock_guard lock(mutex_);
    newest_.swap(published);
    progress_ = progress;
  }
  published.reset();
  const Clock::time_point now = Clock::now();
  next_ = now + std::max<Clock::duration>(kSpacing, kCopyingPart * (now - begin));
}

}  // namespace tarnlog
