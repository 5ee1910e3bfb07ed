#include "acquisition/XmlDataFile.h"

#include <utility>

#include "platform/text/DateText.h"

namespace tarnlog {

std::unique_ptr<DataFile> XmlDataFile::open(FileSystem& files, const std::string& path,
                                            const DataFileHead& head) {
  return std::make_unique<XmlDataFile>(files.create(path), head);
}

XmlDataFile::XmlDataFile(std::unique_ptr<FileStream> stream, const DataFileHead& head)
    : stream_(std::move(stream)), writer_([this](std::string_view bytes) {
        if (gathered_)
          gathered_->append(bytes);
        else
          stream_->write(bytes);
      }) {
  writeOrOwe([&] { writeXmlDataHeader(head); });
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

void XmlDataFile::writeXmlDataHeader(const DataFileHead& head) {
  writer_.startDocument();
  writer_.processingInstruction("xml-stylesheet type=\"text/xsl\" href=\"" + head.stylesheetUrl + "\"", "");
  SaxAttributes version;
  version.addAttribute("Version", "2.0");
  writer_.startElement("Tarnlog2000", version);
  writer_.textElement("Description", head.description);
  writer_.textElement("File", head.baseName);
  writer_.textElement("Date", shortDateText(head.now, head.locale));
  writer_.textElement("Time", timeOfDayText(head.now, head.locale));
  head.parameters.SaxWriteParameters(writer_);
}

}  // namespace tarnlog
