#include "records/TextHeader.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/text/TakeUntil.h"
#include "platform/text/TextEncoding.h"
#include "records/LineReader.h"
#include "records/RecordDate.h"
#include "records/RecordWalk.h"
#include "records/TextRows.h"

namespace tarnlog {

namespace {

std::string_view lineOf(LineReader& line) {
  return {line.begin(), static_cast<std::size_t>(line.end() - line.begin())};
}

/// At least one, though it may be empty.
std::vector<std::string> cellsOf(std::string_view line) {
  constexpr std::size_t kBefore = 2;  // time and mark
  if (static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t')) >= kMostRecordColumns + kBefore)
    throw tooManyColumns("TextHeader");
  std::vector<std::string> cells;
  for (bool another = true; another;) {
    another = line.find('\t') != std::string_view::npos;
    cells.push_back(utf8FromWindows1252(takeUntil(line, '\t')));
  }
  return cells;
}

/// "Speed(km/h)": the unit stands in the last brackets, right behind the name.
void setHeading(RecordColumn& column, const std::string& heading) {
  column.name = heading;
  if (!heading.ends_with(')')) return;
  int open = 0;
  std::size_t at = heading.size();
  do {
    --at;
    open += heading[at] == ')' ? 1 : heading[at] == '(' ? -1 : 0;
  } while (at != 0 && open != 0);
  if (open != 0 || at == 0 || heading[at - 1] == ' ') return;
  column.name = heading.substr(0, at);
  column.unit = heading.substr(at + 1, heading.size() - at - 2);
}

/// A record's header has three lines, that of an event file one.
bool isSecondHeaderLine(const std::vector<std::string>& cells) {
  return cells.size() > 1 && cells[1].empty();
}

RecordHead headOf(const std::vector<std::vector<std::string>>& lines, const std::string& name) {
  RecordHead head;
  RecordGroup group;
  const std::vector<std::string>& headings = lines.back();
  for (std::size_t i = 2; i < lines.front().size(); ++i) {
    RecordColumn column;
    if (lines.size() == 3) {
      column.ecu = unquotedCell(lines[0][i]);
      if (i < lines[1].size()) column.request = unquotedCell(lines[1][i]);
    }
    if (i < headings.size()) setHeading(column, std::string(unquotedCell(headings[i])));
    group.columns.push_back(std::move(column));
  }
  if (lines.size() == 3) head.local = recordDate(lines[1].front(), lines[2].front());
  if (!head.local) head.local = dateInName(name);
  head.groups.push_back(std::move(group));
  return head;
}

/// The header's lines; none when the file ends in it.
std::optional<std::vector<std::vector<std::string>>> headerLines(LineReader& line) {
  std::vector<std::vector<std::string>> lines;
  if (!line.next() || !line.whole()) return std::nullopt;
  lines.push_back(cellsOf(lineOf(line)));
  return lines;
}

}  // namespace

std::optional<TextHeader> readTextHeader(const ReadableFile& file, std::uint64_t place, std::uint64_t till,
                                         const std::string& name) {
  LineReader line(file, place, till);
  auto lines = headerLines(line);
  std::uint64_t rows = line.nextPlace();
  const bool alone = !line.next();
  if (lines && !alone) {
    if (isSecondHeaderLine(cellsOf(lineOf(line)))) {
      lines->push_back(cellsOf(lineOf(line)));
      if (line.next()) lines->push_back(cellsOf(lineOf(line)));
      rows = line.nextPlace();
    }
    if (!line.whole() || lines->size() == 2) lines.reset();
  }
  if (!lines) return std::nullopt;
  return TextHeader{headOf(*lines, name), rows, alone};
}

}  // namespace tarnlog
