#pragma once

#include <memory>
#include <string>

#include "acquisition/DataFile.h"
#include "acquisition/TextStream.h"
#include "platform/files/FileSystem.h"

namespace tarnlog {

/// A tab-separated text file: header lines, then one line per row. One that is there already goes on.
class TextDataFile : public DataFile {
 public:
  /// Header written. Null when the system gives no stream; raises as `FileSystem::openForAppending` does.
  static std::unique_ptr<DataFile> open(FileSystem& files, const std::string& path, const DataFileHead& head);

  TextDataFile(std::unique_ptr<FileStream> file, const DataFileHead& head);

  void writeBuffer(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteBufferToFile(stream_, t0, mark);
  }
  void writeCurrent(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteCurrentToFile(stream_, t0, mark);
  }
  void finish() override {}
  void sync() override { stream_.sync(); }
  RowCount rows() const override { return {stream_.lines(), stream_.linesSynced()}; }
  bool failing() const override { return stream_.failing(); }

 private:
  void writeRecordHeader(const DataFileHead& head);
  void writeEventHeader(const DataFileHead& head);

  TextStream stream_;
};

}  // namespace tarnlog
