#include "platform/files/SyncThread.h"

#include <pthread.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <cstring>
#include <mutex>
#include <optional>

namespace tarnlog {

namespace {

using Clock = std::chrono::steady_clock;

/// While a file is open nobody waits for its syncs; they may take so much longer before that is told.
constexpr int kTimesPatienceWhileOpen = 5;

}  // namespace

struct SyncThread::State {
  State(std::shared_ptr<FileCalls> fileCalls, std::chrono::milliseconds most)
      : calls(std::move(fileCalls)), patience(most) {}

  void run();
  void beginRound();
  void syncOne(std::unique_lock<std::mutex>& lock, const Shared& file);
  int bringToDisk(File& file) const;
  std::chrono::milliseconds silence() const;
  Outcome outcomeOf(File& file, int error) const;
  void settle(std::unique_lock<std::mutex>& lock);
  std::vector<Outcome> takeTroubles(std::chrono::milliseconds bearable);

  const std::shared_ptr<FileCalls> calls;
  const std::chrono::milliseconds patience;
  std::mutex mutex;
  std::condition_variable wake;      ///< for the thread
  std::condition_variable answered;  ///< for who waits for it
  std::vector<Shared> files;
  std::vector<Outcome> troubles;  ///< of files that have left
  std::chrono::milliseconds interval = kInterval;
  Clock::time_point nextRound{};
  std::optional<Clock::time_point> busySince;
  bool quit = false;
};

void SyncThread::State::run() {
  std::unique_lock lock(mutex);
  while (!quit) {
    const auto due = std::ranges::find_if(files, [](const Shared& file) { return file->due_; });
    if (due != files.end())
      syncOne(lock, Shared(*due));
    else if (files.empty() || interval == interval.zero())
      wake.wait(lock);
    else if (Clock::now() >= nextRound)
      beginRound();
    else
      wake.wait_until(lock, nextRound);
  }
}

void SyncThread::State::beginRound() {
  nextRound = Clock::now() + interval;
  for (const Shared& file : files) file->due_ = file->due_ || file->changed_ || file->folderDue_;
}

void SyncThread::State::syncOne(std::unique_lock<std::mutex>& lock, const Shared& file) {
  const std::uint64_t asked = file->asked_;
  file->due_ = false;
  busySince = Clock::now();
  lock.unlock();
  const int error = bringToDisk(*file);
  lock.lock();
  busySince.reset();
  if (error == 0)
    file->told_ = false;
  else
    file->error_ = error;
  file->answered_ = asked;
  if (file->leaving_ && !file->due_) {
    if (file->error_ != 0) troubles.push_back(outcomeOf(*file, file->error_));
    std::erase(files, file);
  }
  answered.notify_all();
}

/// Allocates nothing, as the polling path beside it. A file counts as synced only when its name is. What is
/// written during the sync counts with the next one that succeeds, or with this one when it fails.
int SyncThread::State::bringToDisk(File& file) const {
  if (file.folderDue_) {
    if (const int error = syncFolder(file.folder_, *calls)) return error;
    file.folderDue_ = false;
  }
  if (!file.changed_.exchange(false, std::memory_order_acq_rel)) return 0;
  const std::uint64_t writes = file.writes_.load(std::memory_order_acquire);
  if (calls->fdatasync(file.file_.get()) != 0) {
    const int error = errno;
    file.unsure_ = file.writes_ - file.synced_;
    return error;
  }
  file.synced_.store(writes - file.unsure_, std::memory_order_release);
  return 0;
}

std::chrono::milliseconds SyncThread::State::silence() const {
  return busySince ? std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - *busySince)
                   : std::chrono::milliseconds{};
}

SyncThread::Outcome SyncThread::State::outcomeOf(File& file, int error) const {
  Outcome outcome{file.path_, error};
  if (error == 0) return outcome;
  const auto waited = std::chrono::duration_cast<std::chrono::seconds>(std::max(silence(), patience));
  outcome.why = error == ETIMEDOUT ? "the disk has not answered for " + std::to_string(waited.count()) + " s"
                                   : std::strerror(error);
  outcome.isNews = !std::exchange(file.told_, true);
  return outcome;
}

void SyncThread::State::settle(std::unique_lock<std::mutex>& lock) {
  if (silence() >= patience) return;
  answered.wait_for(lock, patience, [this] {
    return !busySince && std::ranges::none_of(files, [](const Shared& file) { return file->due_; });
  });
}

std::vector<SyncThread::Outcome> SyncThread::State::takeTroubles(std::chrono::milliseconds bearable) {
  const bool silent = busySince && silence() >= bearable;
  std::vector<Outcome> taken = std::exchange(troubles, {});
  for (const Shared& file : files)
    if (const int error = std::exchange(file->error_, 0); error != 0 || silent)
      taken.push_back(outcomeOf(*file, error != 0 ? error : ETIMEDOUT));
  std::erase_if(taken, [](const Outcome& outcome) { return !outcome.isNews; });
  return taken;
}

SyncThread::SyncThread(std::shared_ptr<FileCalls> calls, std::chrono::milliseconds patience)
    : state_(std::make_shared<State>(std::move(calls), patience)) {}

SyncThread::~SyncThread() {
  if (!thread_.joinable()) return;
  std::unique_lock lock(state_->mutex);
  state_->settle(lock);
  state_->quit = true;
  const bool busy = state_->busySince.has_value();
  lock.unlock();
  state_->wake.notify_one();
  if (busy)
    thread_.detach();
  else
    thread_.join();
}

void SyncThread::setInterval(std::chrono::milliseconds interval) {
  const std::lock_guard lock(state_->mutex);
  state_->interval = interval;
  state_->nextRound = Clock::now() + interval;
  state_->wake.notify_one();
}

/// Signals are for the thread that runs the program.
void SyncThread::start() {
  if (thread_.joinable()) return;
  sigset_t all{};
  sigset_t before{};
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  try {
    thread_ = std::thread([state = state_] { state->run(); });
  } catch (...) {
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    throw;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

SyncThread::Shared SyncThread::add(const Descriptor& file, const std::string& path, bool isNew) {
  start();
  auto shared = std::make_shared<File>(file, path, isNew);
  const std::lock_guard lock(state_->mutex);
  if (state_->files.empty()) state_->nextRound = Clock::now() + state_->interval;
  state_->files.push_back(shared);
  state_->wake.notify_one();
  return shared;
}

void SyncThread::letGo(const Shared& file) {
  const std::lock_guard lock(state_->mutex);
  file->leaving_ = file->due_ = true;
  state_->wake.notify_one();
}

void SyncThread::remove(const Shared& file) {
  const std::lock_guard lock(state_->mutex);
  std::erase(state_->files, file);
}

SyncThread::Outcome SyncThread::sync(const Shared& file) {
  std::unique_lock lock(state_->mutex);
  if (state_->silence() >= state_->patience) return state_->outcomeOf(*file, ETIMEDOUT);
  const std::uint64_t ticket = ++file->asked_;
  file->due_ = true;
  state_->wake.notify_one();
  const bool answered =
      state_->answered.wait_for(lock, state_->patience, [&] { return file->answered_ >= ticket; });
  return state_->outcomeOf(*file, answered ? std::exchange(file->error_, 0) : ETIMEDOUT);
}

std::vector<SyncThread::Outcome> SyncThread::takeTroubles() {
  const std::lock_guard lock(state_->mutex);
  return state_->takeTroubles(kTimesPatienceWhileOpen * state_->patience);
}

std::vector<SyncThread::Outcome> SyncThread::finish() {
  std::unique_lock lock(state_->mutex);
  state_->settle(lock);
  return state_->takeTroubles({});
}

}  // namespace tarnlog
