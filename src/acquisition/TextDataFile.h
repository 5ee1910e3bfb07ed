#pragma once

#include <memory>
#include <vector>

#include "acquisition/DataFile.h"
#include "platform/ferrox3/Session.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"

namespace tarnlog {

/// A tab-separated text file: header lines, then one line per row.
class TextDataFile : public DataFile {
 public:
  using Columns = std::vector<ferrox3::DataItem*>;

  explicit TextDataFile(std::unique_ptr<TextStream> stream) : stream_(std::move(stream)) {}

  /// Three lines: ECUs; date and requests; time and data with their units.
  void writeRecordHeader(const Columns& columns, const LocalDateTime& now, const UserLocale& locale);
  /// One line: data with their units.
  void writeEventHeader(const Columns& columns);

  void writeBuffer(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteBufferToFile(*stream_, t0, mark);
  }
  void writeCurrent(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteCurrentToFile(*stream_, t0, mark);
  }
  void finish() override {}
  bool failing() const override { return stream_->failing(); }

 private:
  std::unique_ptr<TextStream> stream_;
};

}  // namespace tarnlog
