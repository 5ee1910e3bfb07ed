#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/FileSystem.h"
#include "platform/files/TextLineStream.h"

namespace tarnlog::test {

/// Files in memory, byte for byte what the system would hold, with failures on request.
class MemoryFileSystem : public FileSystem {
 public:
  std::map<std::string, std::string> files;
  std::set<std::string> folders{"/rec", "/cwd"};
  std::set<std::string> readOnlyFolders;
  std::string openError;   ///< opening fails with this text
  std::string writeError;  ///< writing fails with this text
  bool noStream = false;   ///< opening for appending gives nothing
  int writes = 0;

  bool folderExists(const std::string& path) const override { return folders.count(path) != 0; }
  bool folderWritable(const std::string& path) const override {
    return folderExists(path) && readOnlyFolders.count(path) == 0;
  }
  bool fileExists(const std::string& path) const override { return files.count(path) != 0; }
  std::string currentFolder() const override { return "/cwd"; }

  std::unique_ptr<TextStream> openForAppending(const std::string& path) override {
    if (noStream) return nullptr;
    return std::make_unique<TextLineStream>(open(path));
  }
  std::unique_ptr<FileStream> create(const std::string& path) override {
    if (fileExists(path)) throw TarnError(17, "FileSystem", path + ": File exists");
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
    Stream(MemoryFileSystem& system, std::string path) : system_(system), path_(std::move(path)) {}
    void write(std::string_view bytes) override {
      if (!system_.writeError.empty()) {
        system_.reportWriteFailure(path_, system_.writeError);
        throw TarnError(28, "FileSystem", system_.writeError);
      }
      ++system_.writes;
      system_.files[path_].append(bytes);
    }

   private:
    MemoryFileSystem& system_;
    std::string path_;
  };

  std::unique_ptr<FileStream> open(const std::string& path) {
    if (!openError.empty()) throw TarnError(13, "FileSystem", openError);
    files[path];
    return std::make_unique<Stream>(*this, path);
  }
};

}  // namespace tarnlog::test
