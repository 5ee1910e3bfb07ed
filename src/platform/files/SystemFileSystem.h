#pragma once

#include "platform/files/FileSystem.h"
#include "platform/files/SystemFileStream.h"

namespace tarnlog {

/// The files of this machine (POSIX).
class SystemFileSystem : public FileSystem {
 public:
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
  std::unique_ptr<FileStream> open(const std::string& path, SystemFileStream::Opening opening) const;
};

}  // namespace tarnlog
