#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/files/Descriptor.h"
#include "platform/files/FileSystem.h"
#include "platform/files/SyncThread.h"

namespace tarnlog {

/// A file of this machine whose writes are whole or taken back: what a failed write left behind is cut off
/// again, or, where that is not possible, finished by the next one. It is locked while it is open. A regular
/// file is synced by `syncing` while it is open, and once more when it is closed.
class SystemFileStream : public FileStream {
 public:
  enum class Opening { New, Append };
  using Tell = std::function<void(const WriteTrouble&)>;

  /// Raises NameTaken when a new file is there already, or when another stream writes this one.
  SystemFileStream(std::string path, Opening opening, Tell tell, FileCalls& calls, SyncThread& syncing);
  ~SystemFileStream() override;

  void write(std::string_view row) override;
  void writeOrOwe(std::string_view bytes) override;
  void writeAt(std::uint64_t offset, std::string_view bytes) override;
  void sync() override;
  std::uint64_t writes() const override { return rows_; }
  std::uint64_t writesSynced() const override { return synced_ ? synced_->writesSynced() : 0; }
  bool failing() const override { return failing_; }
  bool cutShort() override {
    look();
    return cutShort_;
  }

 private:
  void takeFile(Opening opening);
  void beginSyncing();
  void endSyncing();
  void noteChange();
  void tellNotSynced(const std::string& why);
  void endLastLine();
  int put(std::string_view row);
  void keepRest(std::string_view whole, std::size_t owed, std::size_t out);
  bool takeBack(std::size_t done);
  [[noreturn]] void raise(int error, bool inPart = false);
  void beginFailing(const std::string& why);
  void endFailing(bool closed);
  void look();
  void noteCut(std::int64_t now);
  void removeIfEmpty();

  std::string path_;
  Descriptor file_;
  Tell tell_;
  FileCalls& calls_;
  SyncThread& syncing_;
  SyncThread::Shared synced_;  ///< none: it is no regular file, or cannot be synced
  bool regular_ = false;
  bool ofLines_ = false;
  bool wasEmpty_ = false;
  bool cutShort_ = false;
  bool hasName_ = true;        ///< in a folder, when it was opened
  std::int64_t size_ = 0;      ///< that the file should have at least
  std::string owed_;           ///< the next write begins with this
  bool rowOwed_ = false;       ///< it holds the end of a row
  bool newestInPart_ = false;  ///< and that is the row whose write failed last
  bool failing_ = false;
  bool removed_ = false;
  std::uint64_t rows_ = 0;  ///< that got into the file
  std::uint64_t lost_ = 0;  ///< in this outage
  std::uint64_t lostInFile_ = 0;
  std::int64_t lookedAt_ = -1;  ///< on the coarse clock
};

}  // namespace tarnlog
