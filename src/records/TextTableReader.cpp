#include "records/TextTableReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/text/TakeUntil.h"
#include "records/RecordWalk.h"
#include "records/TextHeader.h"

namespace tarnlog {

namespace {

constexpr std::size_t kPiece = 256 * 1024;
constexpr std::size_t kLongest = 16 * 1024 * 1024;
constexpr std::size_t kHeaderLines = 3;

std::size_t lineEnds(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

TextTableReader::TextTableReader(const ReadableFile& file, std::string name, Pause pause)
    : file_(file), name_(std::move(name)), pause_(std::move(pause)), builder_(table_) {}

void TextTableReader::readOn() {
  if (newest_.headerAlone) {
    // It may have been half a header.
    place_ = newest_.header;
    builder_.removeNewest();
    rows_.pop_back();
    newest_ = {};
  }
  do {
    while (readPiece()) {
    }
  } while (readAgain(true));
  if (!table_.recordings.empty()) return;
  throw NotARecord(1, "TextRecordReader", cutHeaders_.empty() ? headerNotWhole(place_) : cutHeaders_.front());
}

std::shared_ptr<RecordTable> TextTableReader::table() {
  if (table_.recordings.empty()) return nullptr;
  builder_.finishRows();
  auto copy = std::make_shared<RecordTable>(table_);
  copy->missing = cutHeaders_;
  const bool header = block_.size() >= kTextBeginning.size() && loaded_ >= kTextBeginning.size() &&
                      std::string_view(block_.data(), loaded_).starts_with(kTextBeginning);
  if (header && place_ < file_.size()) copy->missing.push_back(headerNotWhole(place_));
  for (const TextRows& rows : rows_) rows.tellMissing(copy->missing);
  if (!header && place_ < file_.size() && place_ + loaded_ == file_.size())
    copy->missing.push_back(rowNotWhole(place_, loaded_));
  builder_.tellMissing(copy->missing);
  return copy;
}

std::string_view TextTableReader::load(std::size_t most) {
  if (block_.size() < most) block_.resize(most);
  loaded_ = file_.readAt(place_, block_.data(), most);
  return {block_.data(), loaded_};
}

/// False when what is left is no whole row or header, or nothing.
bool TextTableReader::readPiece() {
  for (std::size_t most = kPiece;; most *= 2) {
    const std::string_view text = load(most);
    const bool atEnd = place_ + text.size() >= file_.size() || text.size() < most;
    if (text.empty()) return false;
    if (text.starts_with(kTextBeginning)) {
      if (takeHeader(text, atEnd)) return true;
    } else if (rows_.empty()) {
      return false;  // another file was written over what was a header
    } else {
      const std::size_t lineEnd = text.rfind('\n');
      const std::size_t length =
          std::min(text.find(kTextBeginning), lineEnd == text.npos ? text.npos : lineEnd + 1);
      if (length != text.npos) {
        takeRows(length);
        return true;
      }
    }
    if (atEnd) return false;
    if (most > (text.starts_with(kTextBeginning) ? kHeaderLines : 1) * kLongest)
      throw NotARecord(1, "LineReader", "a line does not end within 16 MB, this is no record");
  }
}

/// False when more of the file must be looked at to know where it ends.
bool TextTableReader::takeHeader(std::string_view text, bool atEnd) {
  const std::size_t next = text.find(kTextBeginning, 1);
  if (next == text.npos && !atEnd && lineEnds(text) < kHeaderLines) return false;
  const std::uint64_t till = place_ + std::min(next, text.size());
  auto header = readTextHeader(file_, place_, till, name_);
  loaded_ = header || next != text.npos ? 0 : loaded_;
  if (!header && next == text.npos) return false;
  if (!header) {
    cutHeaders_.push_back(headerNotWhole(place_));
    place_ = till;
    return true;
  }
  newest_ = {};
  newest_.header = place_;
  newest_.rows = newest_.counted = newest_.doubtful = place_ = header->rows;
  newest_.headerAlone = header->alone && next == text.npos;
  builder_.addRecording(header->head);
  builder_.recording(table_.recordings.size() - 1);
  rows_.emplace_back(header->head.groups.front().columns.size(), newest_.separator);
  return true;
}

void TextTableReader::takeRows(std::size_t length) {
  vote({block_.data(), length});
  if (readAgain(false)) return;
  char* at = block_.data();
  for (char* const end = at + length; at != end;) {
    auto* const found = static_cast<char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    const bool whole = found != nullptr;
    char* lineEnd = whole ? found : end;
    if (whole && lineEnd != at && lineEnd[-1] == '\r') --lineEnd;
    rows_.back().take(at, lineEnd, whole, place_ + static_cast<std::uint64_t>(at - block_.data()), builder_);
    at = whole ? found + 1 : end;
  }
  place_ += length;
  loaded_ = 0;
  pause_();
}

/// Only what has not voted yet, and no row that is not whole.
void TextTableReader::vote(std::string_view text) {
  if (newest_.decided || place_ + text.size() <= newest_.counted) return;
  text.remove_prefix(newest_.counted - std::min(newest_.counted, place_));
  newest_.counted = place_ + text.size();
  while (text.find('\n') != text.npos && !newest_.decided) {
    std::string_view line = takeUntil(text, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    newest_.decided = newest_.vote.addRow(line);
  }
}

/// With the other decimal separator, when it turns out to be that one. As the cells may change their mind
/// again and again, only when twice as much of the recording has been read as the last time, or all of it.
bool TextTableReader::readAgain(bool atEnd) {
  if (rows_.empty() || newest_.vote.separator() == newest_.separator) return false;
  if (!atEnd && !newest_.decided && place_ < newest_.doubtful) return false;
  newest_.separator = newest_.vote.separator();
  newest_.doubtful = place_ + (place_ - newest_.rows);
  if (place_ != newest_.rows) builder_.beginAgain();
  place_ = newest_.rows;
  rows_.back() = TextRows(table_.recordings.back().groups.front().columns.size(), newest_.separator);
  loaded_ = 0;
  return true;
}

}  // namespace tarnlog
