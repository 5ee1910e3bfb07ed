#include <array>

#include "platform/base/TarnError.h"
#include "records/Mf4Reader.h"
#include "records/Record.h"
#include "records/RecordWalk.h"
#include "records/TextHeader.h"
#include "records/TextRecordReader.h"
#include "records/XmlRecordReader.h"

namespace tarnlog {

std::unique_ptr<RecordReader> openRecord(const ReadableFile& file, const std::string& name) {
  std::array<char, 64> bytes{};
  const std::string_view beginning(bytes.data(), file.readAt(0, bytes.data(), bytes.size()));
  if (isMdf(file)) return std::make_unique<Mf4Reader>(file);
  if (beginning.starts_with(kTextBeginning)) return std::make_unique<TextRecordReader>(file, name);
  const std::size_t first = beginning.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  if (first != std::string_view::npos && beginning[first] == '<')
    return std::make_unique<XmlRecordReader>(file, name);
  throw NotARecord(1, "Records",
                   std::string(beginning.empty() ? "no record, the file is empty" : "no record") +
                       ": expected a text or XML record or event file, or an MDF 4 file");
}

}  // namespace tarnlog
