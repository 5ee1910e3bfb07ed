#include "records/TextRecordReader.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "platform/text/TakeUntil.h"
#include "platform/text/TextEncoding.h"
#include "records/RecordCell.h"
#include "records/RecordDate.h"
#include "records/RecordMarks.h"
#include "records/RecordWalk.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBlock = 1024 * 1024;

std::string_view lineOf(LineReader& line) {
  return {line.begin(), static_cast<std::size_t>(line.end() - line.begin())};
}

std::string_view unquoted(std::string_view cell) {
  if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') return cell.substr(1, cell.size() - 2);
  return cell;
}

/// At least one, though it may be empty.
std::vector<std::string> cellsOf(std::string_view line) {
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
      column.ecu = unquoted(lines[0][i]);
      if (i < lines[1].size()) column.request = unquoted(lines[1][i]);
    }
    if (i < headings.size()) setHeading(column, std::string(unquoted(headings[i])));
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

std::string atByte(std::uint64_t place) { return "byte " + std::to_string(place) + ": "; }

}  // namespace

TextRecordReader::TextRecordReader(const ReadableFile& file, const std::string& name) : file_(file) {
  const std::vector<std::uint64_t> headers = headerPlaces();
  if (headers.empty() || headers.front() != 0)
    throw NotARecord(1, "TextRecordReader", "no text record, expected the beginning \"time TAB event\"");
  for (std::size_t i = 0; i < headers.size(); ++i)
    addPart(headers[i], i + 1 < headers.size() ? headers[i + 1] : file_.size(), name);
  if (parts_.empty()) throw NotARecord(1, "TextRecordReader", cutHeaders_.front());
}

/// Also where a header follows a row that was not finished.
std::vector<std::uint64_t> TextRecordReader::headerPlaces() const {
  std::vector<std::uint64_t> places;
  std::vector<char> block(kBlock);
  for (std::uint64_t place = 0; place < file_.size(); place += kBlock - kBeginning.size()) {
    const std::string_view text(block.data(), file_.readAt(place, block.data(), block.size()));
    for (std::size_t at = 0; (at = text.find(kBeginning, at)) != std::string_view::npos; ++at)
      if (places.empty() || places.back() != place + at) places.push_back(place + at);
    if (text.size() < kBlock) break;
  }
  return places;
}

void TextRecordReader::addPart(std::uint64_t header, std::uint64_t till, const std::string& name) {
  LineReader line(file_, header, till);
  auto lines = headerLines(line);
  Part part{line.nextPlace(), till};
  if (lines && line.next()) {
    if (isSecondHeaderLine(cellsOf(lineOf(line)))) {
      lines->push_back(cellsOf(lineOf(line)));
      if (line.next()) lines->push_back(cellsOf(lineOf(line)));
      part.from = line.nextPlace();
    }
    if (!line.whole() || lines->size() == 2) lines.reset();
  }
  if (!lines) {
    cutHeaders_.push_back(atByte(header) + "the header is not whole, no row can be read");
    return;
  }
  part.separator = separatorOf(part);
  parts_.push_back(part);
  recordings_.push_back(headOf(*lines, name));
}

char TextRecordReader::separatorOf(const Part& part) const {
  SeparatorVote vote;
  for (LineReader line(file_, part.from, part.till); line.next();) {
    std::string_view cells = lineOf(line);
    if (vote.addTime(takeUntil(cells, '\t'))) break;
    while (!cells.empty()) vote.addCell(takeUntil(cells, '\t'));
  }
  return vote.separator();
}

void TextRecordReader::read(RecordConsumer& consumer) {
  missing_ = cutHeaders_;
  for (std::size_t i = 0; i < parts_.size(); ++i) readPart(i, consumer);
}

void TextRecordReader::readPart(std::size_t position, RecordConsumer& consumer) {
  consumer.recording(position);
  values_.assign(recordings_[position].groups.front().columns.size(), {});
  Damage damage;
  const Part& part = parts_[position];
  for (LineReader line(file_, part.from, part.till); line.next();) {
    if (line.begin() == line.end()) continue;
    if (line.whole() && readRow(line, part.separator, consumer)) continue;
    if (line.whole() && ++damage.rows == 1) damage.first = line.place();
    if (!line.whole())
      missing_.push_back(atByte(line.place()) + "the row is not whole, " +
                         std::to_string(line.end() - line.begin()) + " bytes passed over");
  }
  if (damage.rows != 0)
    missing_.push_back(atByte(damage.first) + std::to_string(damage.rows) +
                       (damage.rows == 1 ? " row" : " rows, this the first,") +
                       " passed over: expected a time, a mark and " + std::to_string(values_.size()) +
                       " cells with TABs between them");
}

/// False when it is no row.
bool TextRecordReader::readRow(LineReader& line, char separator, RecordConsumer& consumer) {
  char* const end = line.end();
  const auto cellEnd = [end](char* from) {
    auto* const tab = static_cast<char*>(std::memchr(from, '\t', static_cast<std::size_t>(end - from)));
    return tab == nullptr ? end : tab;
  };
  char* at = cellEnd(line.begin());
  const RecordValue time = cellValue(line.begin(), at, separator);
  if (time.kind != RecordValue::Kind::Number || at == end) return false;
  char* const mark = at + 1;
  at = cellEnd(mark);
  const std::string_view markText(mark, static_cast<std::size_t>(at - mark));
  texts_.clear();
  for (RecordValue& value : values_) {
    if (at == end) return false;
    char* const cell = at + 1;
    at = cellEnd(cell);
    value = cellValue(cell, at, separator);
    if (value.kind == RecordValue::Kind::Text && !isAscii(value.text))
      value.text = texts_.copy(utf8FromWindows1252(value.text));
  }
  if (at != end) return false;
  tellMark(unquoted(markText), time.number, consumer);
  consumer.row({0, time.number, time.text, values_, {}, {}});
  return true;
}

void TextRecordReader::tellMark(std::string_view cell, double time, RecordConsumer& consumer) {
  if (!cell.empty()) consumer.note(markNote(cell, time));
}

}  // namespace tarnlog
