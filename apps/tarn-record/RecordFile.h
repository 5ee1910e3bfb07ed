#pragma once

#include <memory>
#include <string>

#include "platform/files/ReadableFile.h"
#include "records/Record.h"

namespace tarnlog::record {

/// A file that is read as a record. What is wrong with it is raised as BadInput with its path.
class RecordFile {
 public:
  explicit RecordFile(const std::string& path);

  const std::vector<RecordHead>& recordings() const { return reader_->recordings(); }
  void read(RecordConsumer& consumer) const;
  /// After `read`: what the file lacks.
  const std::vector<std::string>& missing() const { return reader_->missing(); }
  /// The same as lines, each with the path.
  std::string missingText() const;

 private:
  std::string path_;
  SystemReadableFile file_;
  std::unique_ptr<RecordReader> reader_;
};

}  // namespace tarnlog::record
