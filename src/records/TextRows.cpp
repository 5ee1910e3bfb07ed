#include "records/TextRows.h"

#include <algorithm>

#include "platform/text/TextEncoding.h"
#include "records/RecordCell.h"
#include "records/RecordMarks.h"

namespace tarnlog {

std::string atByte(std::uint64_t place) { return "byte " + std::to_string(place) + ": "; }

std::string headerNotWhole(std::uint64_t place) {
  return atByte(place) + "the header is not whole, no row can be read";
}

std::string rowNotWhole(std::uint64_t place, std::uint64_t bytes) {
  return atByte(place) + "the row is not whole, " + std::to_string(bytes) + " bytes passed over";
}

std::string_view unquotedCell(std::string_view cell) {
  if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') return cell.substr(1, cell.size() - 2);
  return cell;
}

void TextRows::take(char* begin, char* end, bool whole, std::uint64_t place, RecordConsumer& consumer) {
  if (begin == end) return;
  if (!whole) {
    cut_ = static_cast<std::uint64_t>(end - begin);
    cutAt_ = place;
  } else if (!takeRow(begin, end, consumer) && ++damaged_ == 1) {
    firstDamaged_ = place;
  }
}

void TextRows::tellMissing(std::vector<std::string>& missing) const {
  if (damaged_ != 0)
    missing.push_back(atByte(firstDamaged_) + std::to_string(damaged_) +
                      (damaged_ == 1 ? " row" : " rows, this the first,") +
                      " passed over: expected a time, a mark and " + std::to_string(values_.size()) +
                      " cells with TABs between them");
  if (cut_ != 0) missing.push_back(rowNotWhole(cutAt_, cut_));
}

/// False when it is no row.
bool TextRows::takeRow(char* const begin, char* const end, RecordConsumer& consumer) {
  RecordValue time;
  char* at = takeCell(begin, end, separator_, time);
  if (time.kind != RecordValue::Kind::Number || at == end) return false;
  char* const mark = at + 1;
  at = std::find(mark, end, '\t');
  const std::string_view markText(mark, static_cast<std::size_t>(at - mark));
  texts_.clear();
  for (RecordValue& value : values_) {
    if (at == end) return false;
    at = takeCell(at + 1, end, separator_, value);
    if (value.kind == RecordValue::Kind::Text && !isAscii(value.text))
      value.text = texts_.copy(utf8FromWindows1252(value.text));
  }
  if (at != end) return false;
  const std::string_view note = unquotedCell(markText);
  if (!note.empty()) consumer.note(markNote(note, time.number));
  consumer.row({0, time.number, time.text, values_, {}, {}});
  return true;
}

}  // namespace tarnlog
