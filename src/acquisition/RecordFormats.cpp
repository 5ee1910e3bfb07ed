#include "acquisition/RecordFormats.h"

#include <algorithm>

#include "acquisition/TextDataFile.h"
#include "acquisition/XmlDataFile.h"

namespace tarnlog {

const std::array<RecordFormat, 2> kRecordFormats{{
    {".txt", "tab-separated text", false, TextDataFile::open},
    {".xml", "XML", true, XmlDataFile::open},
}};

const RecordFormat& recordFormatOf(std::string_view extension) {
  const auto found = std::ranges::find(kRecordFormats, extension, &RecordFormat::extension);
  return found == kRecordFormats.end() ? kRecordFormats.front() : *found;
}

}  // namespace tarnlog
