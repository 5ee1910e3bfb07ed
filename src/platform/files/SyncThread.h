#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/files/Descriptor.h"
#include "platform/files/FileCalls.h"

namespace tarnlog {

/// Brings files to the disk every few seconds, on a thread of its own that knows nothing of them but a
/// descriptor: a disk that takes its time, or a dying card that never answers, delays no row. One thread for
/// all files: while it waits for a disk, the other files wait as well. It is started with the first file and
/// gets no signals.
class SyncThread {
 public:
  /// What a stream and the thread know of a file.
  class File {
   public:
    /// To be called after each change, by the stream: how many writes are in the file.
    void changed(std::uint64_t writes) {
      writes_.store(writes, std::memory_order_release);
      changed_.store(true, std::memory_order_release);
    }
    /// So many writes are on the disk for certain. A sync that failed leaves open what became of those before
    /// it: they never count.
    std::uint64_t writesSynced() const { return synced_.load(std::memory_order_acquire); }

    File(const Descriptor& file, std::string path, bool isNew)
        : path_(std::move(path)), folder_(folderOf(path_)), file_(file.duplicate(path_)), folderDue_(isNew) {}

   private:
    friend class SyncThread;

    const std::string path_;
    const std::string folder_;
    const Descriptor file_;
    std::atomic<std::uint64_t> writes_{0};
    std::atomic<bool> changed_{false};
    std::atomic<std::uint64_t> synced_{0};
    std::uint64_t unsure_ = 0;  ///< writes before a sync that failed; the thread's own
    bool folderDue_;            ///< the thread's own: its name is not on the disk yet
    bool due_ = true;           ///< from here on under the lock
    bool leaving_ = false;
    std::uint64_t asked_ = 0;
    std::uint64_t answered_ = 0;
    int error_ = 0;      ///< nobody heard of it yet
    bool told_ = false;  ///< that it is not synced
  };
  using Shared = std::shared_ptr<File>;

  struct Outcome {
    std::string path;
    int error = 0;  ///< errno of this sync, or of one before it that nobody heard of; ETIMEDOUT: not yet over
    std::string why{};    ///< the text for it
    bool isNews = false;  ///< nobody was told since the last sync that succeeded
  };

  static constexpr std::chrono::seconds kInterval{5};
  /// How long the end of a recording and of the program wait for the disk. A healthy one, also a card that
  /// tidies up, answers within a second; who waits longer is kept from polling for nothing. It is waited for
  /// once: when a disk has been silent for so long, no other file waits for it any more.
  static constexpr std::chrono::seconds kPatience{2};

  explicit SyncThread(std::shared_ptr<FileCalls> calls, std::chrono::milliseconds patience = kPatience);
  /// Waits for files that were let go, `patience` at most: what is under way then ends by itself.
  ~SyncThread();
  SyncThread(const SyncThread&) = delete;
  SyncThread& operator=(const SyncThread&) = delete;

  /// From one sync of all files that were changed to the next; 0: only when it is asked for.
  void setInterval(std::chrono::milliseconds interval);

  /// Takes a file over for syncing; the folder of a new one is synced at once. Raises a TarnError or
  /// system_error when there is no descriptor or no thread left.
  Shared add(const Descriptor& file, const std::string& path, bool isNew);
  /// Syncs a file once more and lets it go, without waiting; with `remove` at once, unsynced.
  void letGo(const Shared& file);
  void remove(const Shared& file);

  /// Waits until everything that is in the file now is on the disk, `patience` at most.
  Outcome sync(const Shared& file);

  /// What nobody was told of yet: syncs that failed, or are under way for long.
  std::vector<Outcome> takeTroubles();
  /// The same at the end: waits first for the files that were let go, `patience` at most.
  std::vector<Outcome> finish();

 private:
  struct State;

  void start();

  const std::shared_ptr<State> state_;  ///< the thread's, too, which may outlive this
  std::thread thread_;
};

}  // namespace tarnlog
