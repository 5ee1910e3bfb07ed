#include "records/CsvExport.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "records/RecordMarks.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBlock = 256 * 1024;

bool needsQuotes(char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; }

void appendText(std::string& out, std::string_view text) {
  if (std::none_of(text.begin(), text.end(), needsQuotes)) {
    out.append(text);
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

std::string heading(const std::string& name, const RecordColumn& column) {
  return column.unit.empty() ? name : name + " [" + column.unit + "]";
}

}  // namespace

CsvExport::CsvExport(const std::vector<RecordHead>& recordings, ExportChoice choice, ExportOutput output)
    : recordings_(recordings), choice_(std::move(choice)), output_(std::move(output)) {
  makeColumns(recordings);
  pending_.cells.resize(columns_.size());
  pending_.filled.resize(columns_.size());
  writeHeader();
}

/// Data that several recordings have share a column; so do not two of one recording.
void CsvExport::makeColumns(const std::vector<RecordHead>& recordings) {
  std::map<std::tuple<std::string, std::string, int>, std::size_t> known;
  for (const RecordHead& head : recordings) {
    const auto names = shortNames(head);
    std::map<std::string, int> occurrences;
    std::vector<Slots>& ofHead = slots_.emplace_back();
    for (std::size_t g = 0; g < head.groups.size(); ++g) {
      Slots& slots = ofHead.emplace_back();
      for (std::size_t c = 0; c < head.groups[g].columns.size(); ++c) {
        const RecordColumn& column = head.groups[g].columns[c];
        if (!choice_.takes(column)) continue;
        const std::string full = fullName(column);
        const auto [at, isNew] =
            known.try_emplace({full, column.unit, occurrences[full + "/" + column.unit]++}, columns_.size());
        if (isNew) columns_.push_back(heading(names[g][c], column));
        slots.push_back({at->second, c, column.scaled});
      }
      std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) { return a.column < b.column; });
    }
  }
}

void CsvExport::writeHeader() {
  if (recordings_.size() > 1) out_ += "recording,";
  out_ += choice_.utc ? "time,mark" : "time [s],mark";
  for (const std::string& column : columns_) {
    out_ += ',';
    appendText(out_, column);
  }
  endLine();
}

void CsvExport::recording(std::size_t position) {
  endPending();
  recording_ = position;
}

void CsvExport::row(const RecordRow& row) {
  const std::vector<Slots>& groups = slots_[recording_];
  const Slots& slots = groups[row.group];
  if (slots.empty() || !choice_.takes(row.time)) return;
  if (groups.size() == 1)
    writeRow(row, slots);
  else
    mergeRow(row, slots);
}

/// Where there is one group, nothing but a mark before it can share the line.
void CsvExport::writeRow(const RecordRow& row, const Slots& slots) {
  if (pending_.open && pending_.time != row.time) endPending();
  beginLine(row.time, row.timeText, pending_.open ? std::string_view(pending_.mark) : std::string_view());
  pending_.open = false;
  pending_.mark.clear();
  std::size_t column = 0;
  for (const Slot& slot : slots) {
    out_.append(slot.column + 1 - column, ',');
    column = slot.column + 1;
    appendValue(out_, row.values[slot.value], slot.scaled);
  }
  out_.append(columns_.size() - column, ',');
  endLine();
}

void CsvExport::mergeRow(const RecordRow& row, const Slots& slots) {
  const bool taken = pending_.open && std::any_of(slots.begin(), slots.end(), [&](const Slot& slot) {
                       return pending_.filled[slot.column];
                     });
  if (taken || (pending_.open && pending_.time != row.time)) endPending();
  pending_.open = true;
  pending_.time = row.time;
  pending_.timeText = row.timeText;
  for (const Slot& slot : slots) {
    pending_.filled[slot.column] = true;
    appendValue(pending_.cells[slot.column], row.values[slot.value], slot.scaled);
  }
}

void CsvExport::note(const RecordNote& note) {
  if (!choice_.takes(note.time)) return;
  if (pending_.open && (pending_.time != note.time || !pending_.mark.empty())) endPending();
  pending_.open = true;
  pending_.time = note.time;
  pending_.mark = markText(note);
}

void CsvExport::endPending() {
  if (!pending_.open) return;
  beginLine(pending_.time, pending_.timeText, pending_.mark);
  for (std::string& cell : pending_.cells) {
    out_ += ',';
    out_ += cell;
    cell.clear();
  }
  endLine();
  std::fill(pending_.filled.begin(), pending_.filled.end(), false);
  pending_.open = false;
  pending_.timeText.clear();
  pending_.mark.clear();
}

void CsvExport::beginLine(double time, std::string_view timeText, std::string_view mark) {
  if (recordings_.size() > 1) out_.append(std::to_string(recording_ + 1)) += ',';
  if (choice_.utc)
    appendIsoTime(out_, utcOf(recordings_[recording_], time));
  else
    appendRecordTime(out_, time, timeText);
  out_ += ',';
  out_ += mark;
}

void CsvExport::endLine() {
  out_ += '\n';
  if (out_.size() < kBlock) return;
  output_(out_);
  out_.clear();
}

void CsvExport::finish() {
  endPending();
  output_(out_);
  out_.clear();
}

void CsvExport::appendValue(std::string& out, const RecordValue& value, bool scaled) const {
  if (value.kind == RecordValue::Kind::Number)
    appendRecordNumber(out, value, scaled);
  else if (value.kind == RecordValue::Kind::Text)
    appendText(out, value.text);
}

}  // namespace tarnlog
