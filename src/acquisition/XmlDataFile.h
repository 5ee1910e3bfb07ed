#pragma once

#include <memory>
#include <optional>
#include <string>

#include "acquisition/DataFile.h"
#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"
#include "platform/xml/XmlWriter.h"

namespace tarnlog {

/// What the head of an XML data file tells.
struct XmlDataHeader {
  std::string stylesheetUrl;
  std::string description;  ///< "Data file", or which event it is
  std::string baseName;     ///< of the record file, without folder and prefix; may be empty
  LocalDateTime now;
};

/// An XML data file: root Tarnlog2000 with a header, the configuration, and one `row` element per row.
class XmlDataFile : public DataFile {
 public:
  /// Writes the header.
  XmlDataFile(std::unique_ptr<FileStream> stream, const XmlDataHeader& header,
              const oTarnParameters& parameters, const UserLocale& locale);

  void writeBuffer(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteBufferToSaxFile(writer_, t0, mark);
  }
  void writeCurrent(RollingBuffer& buffer, TimeOrigin t0, std::string_view mark) override {
    buffer.WriteCurrentToSaxFile(writer_, t0, mark);
  }
  void finish() override;
  bool failing() const override { return stream_->failing(); }

 private:
  void writeXmlDataHeader(const XmlDataHeader& header, const oTarnParameters& parameters,
                          const UserLocale& locale);

  template <class Write>
  void writeOrOwe(Write write);

  std::unique_ptr<FileStream> stream_;
  std::optional<std::string> gathered_;  ///< what is written, while it must go out as a whole
  XmlWriter writer_;
};

}  // namespace tarnlog
