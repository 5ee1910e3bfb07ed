#include "acquisition/XmlDataFile.h"

#include <utility>

#include "platform/text/DateText.h"

namespace tarnlog {

XmlDataFile::XmlDataFile(std::unique_ptr<FileStream> stream, const XmlDataHeader& header,
                         const oTarnParameters& parameters, const UserLocale& locale)
    : stream_(std::move(stream)), writer_([this](std::string_view bytes) {
        if (gathered_)
          gathered_->append(bytes);
        else
          stream_->write(bytes);
      }) {
  writeOrOwe([&] { writeXmlDataHeader(header, parameters, locale); });
}

void XmlDataFile::finish() {
  writeOrOwe([this] { writer_.endElement("Tarnlog2000"); });
}

/// Rows may be lost on a full disk, but what makes a document of them may not.
template <class Write>
void XmlDataFile::writeOrOwe(Write write) {
  gathered_.emplace();
  write();
  stream_->writeOrOwe(*std::exchange(gathered_, std::nullopt));
}

void XmlDataFile::writeXmlDataHeader(const XmlDataHeader& header, const oTarnParameters& parameters,
                                     const UserLocale& locale) {
  writer_.startDocument();
  writer_.processingInstruction("xml-stylesheet type=\"text/xsl\" href=\"" + header.stylesheetUrl + "\"", "");
  SaxAttributes version;
  version.addAttribute("Version", "2.0");
  writer_.startElement("Tarnlog2000", version);
  writer_.textElement("Description", header.description);
  writer_.textElement("File", header.baseName);
  writer_.textElement("Date", shortDateText(header.now, locale));
  writer_.textElement("Time", timeOfDayText(header.now, locale));
  parameters.SaxWriteParameters(writer_);
}

}  // namespace tarnlog
