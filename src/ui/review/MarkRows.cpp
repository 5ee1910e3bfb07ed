#include "ui/review/MarkRows.h"

#include <algorithm>
#include <utility>

#include "acquisition/FileNames.h"
#include "platform/files/FileSystem.h"

namespace tarnlog {

namespace {

bool same(const MarkRows::Row& a, const MarkRows::Row& b) {
  return a.record == b.record && a.time == b.time && a.mark.kind == b.mark.kind &&
         a.mark.number == b.mark.number && a.mark.text == b.mark.text;
}

std::string folderOfRecord(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash);
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// A prefix of the record's name stands before "event", too. Where the date behind it begins is not told: at
/// any of the digits.
void addNumbered(std::vector<std::string>& names, std::uint32_t number, const std::string& record) {
  const std::size_t date = std::min(record.rfind('_'), record.size());
  for (std::size_t begin = 0; begin < date; ++begin)
    if (record[begin] >= '0' && record[begin] <= '9')
      names.push_back(record.substr(0, begin) +
                      recordEventName(static_cast<std::int32_t>(number), record.substr(begin)));
}

}  // namespace

bool MarkRows::refresh() {
  std::vector<Row> rows;
  for (std::size_t position = 0; position < scene_.records().size(); ++position) {
    const LookedAtRecord& record = scene_.records()[position];
    for (const TableMark& mark : record.recordingTable().marks)
      rows.push_back({position, mark, mark.time + record.offset});
  }
  std::ranges::stable_sort(rows, {}, &Row::time);
  if (std::ranges::equal(rows, rows_, same)) return false;
  rows_ = std::move(rows);
  return true;
}

std::vector<std::string> MarkRows::eventFiles(const TableMark& mark, const std::string& recordPath) {
  if (mark.kind != RecordNote::Kind::Event) return {};
  const std::string folder = folderOfRecord(recordPath);
  std::vector<std::string> names;
  if (!mark.text.empty()) names.push_back(nameOf(mark.text));
  if (mark.number != 0) addNumbered(names, mark.number, nameOf(recordPath));
  for (std::string& name : names) name = joinPath(folder, name);
  return names;
}

}  // namespace tarnlog
