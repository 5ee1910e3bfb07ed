#include "acquisition/RecordFormats.h"

#include <algorithm>
#include <array>

#include "acquisition/TextDataFile.h"
#include "acquisition/XmlDataFile.h"

namespace tarnlog {

std::span<const RecordFormat> recordFormats() {
  static constexpr std::array kFormats{
      RecordFormat{".txt", "tab-separated text", false, TextDataFile::open},
      RecordFormat{".xml", "XML", true, XmlDataFile::open},
  };
  return kFormats;
}

const RecordFormat& recordFormatOf(std::string_view extension) {
  const auto formats = recordFormats();
  const auto found = std::ranges::find(formats, extension, &RecordFormat::extension);
  return found == formats.end() ? formats.front() : *found;
}

}  // namespace tarnlog
