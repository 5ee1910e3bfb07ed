#include "records/XmlRecordReader.h"

#include <algorithm>
#include <charconv>

#include "config/RecordMark.h"
#include "platform/xml/XmlDocument.h"
#include "records/RecordCell.h"
#include "records/RecordDate.h"
#include "records/RecordMarks.h"

namespace tarnlog {

namespace {

constexpr std::string_view kRootStart = "<Tarnlog2000>";

/// Reads a file from its beginning, or as a document of what stands behind one of its rows, until it is told
/// to stop.
class BlockFeed {
 public:
  explicit BlockFeed(const ReadableFile& file, std::uint64_t place = 0)
      : file_(file), place_(place), start_(place == 0 ? std::string_view() : kRootStart) {}
  void stop() { stopped_ = true; }

  ReadBlock reader() {
    return [this](char* block, std::size_t size) -> std::size_t {
      if (stopped_) return 0;
      if (!start_.empty()) return std::exchange(start_, {}).copy(block, size);
      const std::size_t count = file_.readAt(place_, block, size);
      place_ += count;
      return count;
    };
  }

 private:
  const ReadableFile& file_;
  std::uint64_t place_;
  std::string_view start_;
  bool stopped_ = false;
};

/// What stands before the rows.
struct Head {
  std::string elements;  ///< children of the root
  std::size_t columns = 0;
  bool rows = false;  ///< there is one at least
  SeparatorVote vote;
  bool decided = false;
};

std::string_view view(const XmlRow::Cell& cell) {
  return {cell.begin, static_cast<std::size_t>(cell.end - cell.begin)};
}

void look(Head& head, XmlRow& row) {
  head.rows = true;
  head.decided = head.vote.addTime(view(row.time()));
  for (const XmlRow::Cell& cell : row.cells()) {
    head.columns = std::max(head.columns, cell.column);
    if (!head.decided) head.vote.addCell(view(cell));
  }
}

bool isElement(std::string_view piece) {
  const std::size_t start = piece.find_first_not_of(" \t\r\n");
  return start != std::string_view::npos && piece.substr(start, 2) != "</" && piece[start] == '<';
}

std::vector<RecordColumn> namedColumns(const XmlDocument& head) {
  std::vector<RecordColumn> columns;
  for (const XmlElement& data : head.selectNodes("head/Datas/Data")) {
    RecordColumn column;
    column.ecu = data.firstChild("ECU").attributeOrEmpty("name");
    column.request = data.attributeOrEmpty("request");
    column.name = data.attributeOrEmpty("name");
    column.unit = data.attributeOrEmpty("unit");
    columns.push_back(std::move(column));
  }
  return columns;
}

std::optional<LocalDateTime> beginningOf(const XmlDocument& head, const std::string& name) {
  // The element of an event file names its record, from whose beginning its times count; that of one outside
  // of a recording says nothing.
  const bool loose = head.selectSingleNode("head/Description").text() == "Event";
  const auto told = loose ? std::nullopt : dateInName(head.selectSingleNode("head/File").text());
  return told ? told : dateInName(name);
}

std::string counted(std::uint64_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

XmlRecordReader::XmlRecordReader(const ReadableFile& file, const std::string& name) : file_(file) {
  readHead(name);
}

void XmlRecordReader::readHead(const std::string& name) {
  BlockFeed feed(file_);
  Head head;
  bool root = false;
  const RecordFaults faults = walkRecord(feed.reader(), [&](std::string_view piece) {
    if (!std::exchange(root, true) || head.decided) return;
    if (XmlRow::isRow(piece)) {
      if (row_.read(piece)) look(head, row_);
      if (head.decided) feed.stop();
    } else if (!head.rows && isElement(piece)) {
      head.elements += piece;
    }
  });
  XmlDocument document;
  const auto error = document.parse("<head>" + head.elements + "</head>");
  if (!faults.record || error)
    throw NotARecord(1, "XmlRecordReader", "no XML record, expected the root element Tarnlog2000");
  const std::string description = document.selectSingleNode("head/Description").text();
  if (description.empty() || (!document.selectSingleNode("head/Datas") && describesRecord(description)))
    throw NotARecord(1, "XmlRecordReader", "the head is not whole, no row can be read");
  if (!describesRecord(description))
    throw NotARecord(1, "XmlRecordReader", "a configuration, expected a record");

  RecordGroup group{{}, {}, namedColumns(document)};
  if (group.columns.size() > kMostRecordColumns) throw tooManyColumns("XmlRecordReader");
  if (head.rows && head.columns != group.columns.size()) {
    unnamed_ = "the rows have " + counted(head.columns, "column") + " for the " +
               counted(group.columns.size(), "item") + " named, so the columns are called C1, C2, ...";
    group.columns.assign(head.columns, {});
    for (std::size_t i = 0; i < head.columns; ++i) group.columns[i].name = "C" + std::to_string(i + 1);
  }
  separator_ = head.vote.separator();
  separatorKnown_ = head.decided;
  RecordHead& recording = recordings_.emplace_back();
  recording.local = beginningOf(document, name);
  recording.facts.emplace_back("comment", document.selectSingleNode("head/Parameters/Comment").text());
  recording.groups.push_back(std::move(group));
  recording.configuration = "<Tarnlog2000>" + head.elements + "</Tarnlog2000>";
}

void XmlRecordReader::read(RecordConsumer& consumer) {
  values_.assign(recordings_.front().groups.front().columns.size(), {});
  place_ = bad_ = cut_ = dropped_ = 0;
  readFrom(0, consumer);
}

bool XmlRecordReader::readOn(RecordConsumer& consumer) {
  if (!separatorKnown_ || place_ == 0) return false;
  readFrom(place_, consumer);
  return true;
}

void XmlRecordReader::readFrom(std::uint64_t place, RecordConsumer& consumer) {
  consumer.recording(0);
  BlockFeed feed(file_, place);
  const RecordFaults faults = walkRecord(feed.reader(), [&](std::string_view piece) {
    if (XmlRow::isRow(piece) && !readRow(piece, consumer)) ++bad_;
  });
  openEnded_ = !faults.closed;
  cut_ += faults.cutRows;
  tellFaults(faults);
  if (faults.wholeBytes > kRootStart.size())
    place_ = place + faults.wholeBytes - (place == 0 ? 0 : kRootStart.size());
  dropped_ += faults.wholeDropped;
}

void XmlRecordReader::tellFaults(const RecordFaults& faults) {
  missing_.clear();
  if (!unnamed_.empty()) missing_.push_back(unnamed_);
  if (bad_ != 0)
    missing_.push_back(counted(bad_, "row") + " passed over: without a time, or with foreign cells");
  if (!faults.closed) missing_.emplace_back("the file is not closed: its recording goes on or was killed");
  if (cut_ != 0) missing_.push_back(counted(cut_, "row") + " cut, the whole cells are read");
  if (dropped_ + faults.droppedBytes != 0)
    missing_.push_back(counted(dropped_ + faults.droppedBytes, "byte") +
                       " of what is not finished passed over");
}

bool XmlRecordReader::readRow(std::string_view piece, RecordConsumer& consumer) {
  if (!row_.read(piece)) return false;
  const RecordValue time = cellValue(row_.time().begin, row_.time().end, separator_);
  if (time.kind != RecordValue::Kind::Number) return false;
  std::fill(values_.begin(), values_.end(), RecordValue());
  for (const XmlRow::Cell& cell : row_.cells()) {
    if (cell.column > values_.size()) return false;
    values_[cell.column - 1] = cellValue(cell.begin, cell.end, separator_);
  }
  if (!row_.mark().empty()) consumer.note(markNote(row_.mark(), time.number));
  consumer.row({0, time.number, time.text, values_, {}, {}});
  return true;
}

}  // namespace tarnlog
