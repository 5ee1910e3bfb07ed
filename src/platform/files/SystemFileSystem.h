#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "platform/files/FileCalls.h"
#include "platform/files/FileSystem.h"
#include "platform/files/SyncThread.h"
#include "platform/files/SystemFileStream.h"

namespace tarnlog {

/// The files of this machine (POSIX). What streams write reaches the disk every few seconds, without their
/// waiting for it, and when they are closed; what is replaced, before `replace` returns.
class SystemFileSystem : public FileSystem {
 public:
  explicit SystemFileSystem(std::shared_ptr<FileCalls> calls = FileCalls::ofSystem(),
                            std::chrono::milliseconds patience = SyncThread::kPatience);

  /// From one sync of open files to the next; 0: only when they are closed. 5 s when nobody sets it.
  void setSyncInterval(std::chrono::milliseconds interval) { syncing_.setInterval(interval); }
  /// Tells the trouble handler what could not be synced. To be called often, on the streams' thread.
  void tellSyncTroubles() { tell(syncing_.takeTroubles()); }
  /// The same at the end, when all files are closed: waits for the disk, two seconds at most.
  void finishSyncing() { tell(syncing_.finish()); }

  bool folderExists(const std::string& path) const override;
  bool folderWritable(const std::string& path) const override;
  bool fileExists(const std::string& path) const override;
  std::string currentFolder() const override;
  std::unique_ptr<FileStream> openForAppending(const std::string& path) override;
  std::unique_ptr<FileStream> create(const std::string& path) override;
  void replace(const std::string& path, std::string_view bytes) override;
  std::string readAll(const std::string& path) const override;
  std::string readBeginning(const std::string& path, std::size_t most) const override;

 private:
  void tell(const std::vector<SyncThread::Outcome>& troubles) const;
  std::unique_ptr<FileStream> open(const std::string& path, SystemFileStream::Opening opening);

  const std::shared_ptr<FileCalls> calls_;
  SyncThread syncing_;
};

}  // namespace tarnlog
