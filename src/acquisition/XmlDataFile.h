#pragma once

#include <memory>
#include <optional>
#include <string>

#include "acquisition/DataFile.h"
#include "platform/files/FileSystem.h"
#include "platform/xml/XmlWriter.h"

namespace tarnlog {

/// An XML data file: root Tarnlog2000 with a header, the configuration, and one `row` element per row. A
/// second document cannot be appended to one, so its name must be new.
class XmlDataFile : public DataFile {
 public:
  /// Header written. Raises as `FileSystem::create` does.
  static std::unique_ptr<DataFile> open(FileSystem& files, const std::string& path, const DataFileHead& head);

  XmlDataFile(std::unique_ptr<FileStream> stream, const DataFileHead& head);

  void writeBuffer(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteBufferToSaxFile(writer_, t0, mark);
  }
  void writeCurrent(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteCurrentToSaxFile(writer_, t0, mark);
  }
  void finish() override;
  void sync() override { stream_->sync(); }
  RowCount rows() const override { return {stream_->writes(), stream_->writesSynced()}; }
  bool failing() const override { return stream_->failing(); }

 private:
  void writeXmlDataHeader(const DataFileHead& head);

  template <class Write>
  void writeOrOwe(Write write);

  std::unique_ptr<FileStream> stream_;
  std::optional<std::string> gathered_;  ///< what is written, while it must go out as a whole
  XmlWriter writer_;
};

}  // namespace tarnlog
