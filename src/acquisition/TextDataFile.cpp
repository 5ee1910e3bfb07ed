#include "acquisition/TextDataFile.h"

#include <algorithm>
#include <functional>
#include <string>

#include "platform/text/DateText.h"

namespace tarnlog {

namespace {

std::string headerLine(std::string line, const TextDataFile::Columns& columns,
                       const std::function<std::string(const ferrox3::DataItem&)>& text) {
  for (const ferrox3::DataItem* item : columns) {
    std::string cell = text(*item);
    std::replace_if(
        cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    line += "\t\"" + cell + "\"";
  }
  return line;
}

std::string dataHeading(const ferrox3::DataItem& item) {
  return item.unit().empty() ? item.name() : item.name() + "(" + item.unit() + ")";
}

}  // namespace

void TextDataFile::writeRecordHeader(const Columns& columns, const LocalDateTime& now,
                                     const UserLocale& locale) {
  stream_->writeHeading(
      {headerLine("time\tevent", columns,
                  [](const ferrox3::DataItem& item) { return item.request().ecu().name(); }),
       headerLine(formatDateTime(now, "d/m/yy", locale) + "\t", columns,
                  [](const ferrox3::DataItem& item) { return item.request().name(); }),
       headerLine(formatDateTime(now, "Hh:Nn:ss", locale) + "\t", columns, dataHeading)});
}

void TextDataFile::writeEventHeader(const Columns& columns) {
  stream_->writeHeading({headerLine("time\tevent", columns, dataHeading)});
}

}  // namespace tarnlog
