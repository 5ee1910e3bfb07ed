#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/FileSystem.h"

namespace tarnlog::test {

/// Files in memory, byte for byte what the system would hold, with failures on request.
class MemoryFileSystem : public FileSystem {
 public:
  std::map<std::string, std::string> files;
  std::set<std::string> folders{"/rec", "/cwd"};
  std::set<std::string> readOnlyFolders;
  std::string openError;        ///< opening fails with this text
  std::string writeError;       ///< writing fails with this text
  bool noStream = false;        ///< opening for appending gives nothing
  std::set<std::string> inUse;  ///< files that are being written, by streams of this or by another program

  bool folderExists(const std::string& path) const override { return folders.count(path) != 0; }
  bool folderWritable(const std::string& path) const override {
    return folderExists(path) && readOnlyFolders.count(path) == 0;
  }
  bool fileExists(const std::string& path) const override { return files.count(path) != 0; }
  std::string currentFolder() const override { return "/cwd"; }

  std::unique_ptr<FileStream> openForAppending(const std::string& path) override {
    if (noStream) return nullptr;
    return open(path);
  }
  std::unique_ptr<FileStream> create(const std::string& path) override {
    if (fileExists(path)) throw NameTaken(17, "FileSystem", path + ": File exists");
    return open(path);
  }
  void replace(const std::string& path, std::string_view bytes) override {
    if (!openError.empty()) throw TarnError(13, "FileSystem", openError);
    files[path] = bytes;
  }
  std::string readAll(const std::string& path) const override {
    const auto found = files.find(path);
    if (found == files.end()) throw TarnError(2, "FileSystem", path + ": No such file or directory");
    return found->second;
  }

 private:
  class Stream : public FileStream {
   public:
    Stream(MemoryFileSystem& system, std::string path) : system_(system), path_(std::move(path)) {
      if (!system_.inUse.insert(path_).second) throw NameTaken(11, "FileSystem", path_ + ": in use");
      system_.files[path_];
    }
    ~Stream() override {
      system_.inUse.erase(path_);
      if (failing_ && system_.files[path_].empty()) system_.files.erase(path_);
      endFailing(true);
    }
    void write(std::string_view bytes) override {
      if (put(bytes)) {
        ++writes_;
        return;
      }
      ++lost_;
      throw TarnError(28, "FileSystem", system_.writeError);
    }
    void writeOrOwe(std::string_view bytes) override {
      owed_.append(bytes);
      put({});
    }
    void writeAt(std::uint64_t offset, std::string_view bytes) override {
      refuseFailing();
      system_.files[path_].replace(offset, bytes.size(), bytes);
    }
    void sync() override {
      refuseFailing();
      synced_ = writes_;
    }
    std::uint64_t writes() const override { return writes_; }
    std::uint64_t writesSynced() const override { return synced_; }
    bool failing() const override { return failing_; }

   private:
    bool put(std::string_view bytes) {
      if (beginFailing()) return false;
      system_.files[path_].append(std::exchange(owed_, {})).append(bytes);
      endFailing(false);
      return true;
    }
    bool beginFailing() {
      if (system_.writeError.empty()) return false;
      if (!std::exchange(failing_, true))
        system_.tellTrouble({.kind = WriteTrouble::Kind::Begun, .path = path_, .why = system_.writeError});
      return true;
    }
    void refuseFailing() {
      if (beginFailing()) throw TarnError(28, "FileSystem", system_.writeError);
    }
    void endFailing(bool closed) {
      if (!std::exchange(failing_, false)) return;
      inFile_ += lost_;
      system_.tellTrouble({WriteTrouble::Kind::Ended, path_, "", std::exchange(lost_, 0), inFile_, closed});
    }

    MemoryFileSystem& system_;
    std::string path_;
    std::string owed_;
    bool failing_ = false;
    std::uint64_t writes_ = 0;
    std::uint64_t synced_ = 0;
    std::uint64_t lost_ = 0;
    std::uint64_t inFile_ = 0;
  };

  std::unique_ptr<FileStream> open(const std::string& path) {
    if (!openError.empty()) throw TarnError(13, "FileSystem", openError);
    return std::make_unique<Stream>(*this, path);
  }
};

}  // namespace tarnlog::test
