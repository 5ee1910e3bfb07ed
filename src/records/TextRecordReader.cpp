#include "records/TextRecordReader.h"

#include "records/LineReader.h"
#include "records/RecordCell.h"
#include "records/RecordWalk.h"
#include "records/TextHeader.h"
#include "records/TextRows.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBlock = 1024 * 1024;

char separatorOf(const ReadableFile& file, std::uint64_t from, std::uint64_t till) {
  SeparatorVote vote;
  for (LineReader line(file, from, till); line.next();)
    if (line.whole() && vote.addRow({line.begin(), static_cast<std::size_t>(line.end() - line.begin())}))
      break;
  return vote.separator();
}

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
  for (std::uint64_t place = 0; place < file_.size(); place += kBlock - kTextBeginning.size()) {
    const std::string_view text(block.data(), file_.readAt(place, block.data(), block.size()));
    for (std::size_t at = 0; (at = text.find(kTextBeginning, at)) != std::string_view::npos; ++at)
      if (places.empty() || places.back() != place + at) places.push_back(place + at);
    if (text.size() < kBlock) break;
  }
  return places;
}

void TextRecordReader::addPart(std::uint64_t header, std::uint64_t till, const std::string& name) {
  auto read = readTextHeader(file_, header, till, name);
  if (!read) {
    cutHeaders_.push_back(headerNotWhole(header));
    return;
  }
  parts_.push_back({read->rows, till, separatorOf(file_, read->rows, till)});
  recordings_.push_back(std::move(read->head));
}

void TextRecordReader::read(RecordConsumer& consumer) {
  missing_ = cutHeaders_;
  for (std::size_t i = 0; i < parts_.size(); ++i) readPart(i, consumer);
}

void TextRecordReader::readPart(std::size_t position, RecordConsumer& consumer) {
  consumer.recording(position);
  const Part& part = parts_[position];
  TextRows rows(recordings_[position].groups.front().columns.size(), part.separator);
  for (LineReader line(file_, part.from, part.till); line.next();)
    rows.take(line.begin(), line.end(), line.whole(), line.place(), consumer);
  rows.tellMissing(missing_);
}

}  // namespace tarnlog
