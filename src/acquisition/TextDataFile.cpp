#include "acquisition/TextDataFile.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/Cell.h"
#include "platform/text/DateText.h"

namespace tarnlog {

namespace {

std::string headerLine(std::string line, const std::vector<ferrox3::DataItem*>& columns,
                       const std::function<std::string(const ferrox3::DataItem&)>& text) {
  for (const ferrox3::DataItem* item : columns) line += "\t\"" + cleanCell(text(*item)) + "\"";
  return line;
}

std::string dataHeading(const ferrox3::DataItem& item) {
  return item.unit().empty() ? item.name() : item.name() + "(" + item.unit() + ")";
}

}  // namespace

std::unique_ptr<DataFile> TextDataFile::open(FileSystem& files, const std::string& path,
                                             const DataFileHead& head) {
  std::unique_ptr<FileStream> file = files.openForAppending(path);
  return file == nullptr ? nullptr : std::make_unique<TextDataFile>(std::move(file), head);
}

TextDataFile::TextDataFile(std::unique_ptr<FileStream> file, const DataFileHead& head)
    : stream_(std::move(file)) {
  if (head.event)
    writeEventHeader(head);
  else
    writeRecordHeader(head);
}

/// Three lines: ECUs; date and requests; time and data with their units.
void TextDataFile::writeRecordHeader(const DataFileHead& head) {
  stream_.writeHeading(
      {headerLine("time\tevent", head.columns,
                  [](const ferrox3::DataItem& item) { return item.request().ecu().name(); }),
       headerLine(formatDateTime(head.now, "d/m/yy", head.locale) + "\t", head.columns,
                  [](const ferrox3::DataItem& item) { return item.request().name(); }),
       headerLine(formatDateTime(head.now, "Hh:Nn:ss", head.locale) + "\t", head.columns, dataHeading)});
}

/// One line: data with their units.
void TextDataFile::writeEventHeader(const DataFileHead& head) {
  stream_.writeHeading({headerLine("time\tevent", head.columns, dataHeading)});
}

}  // namespace tarnlog
