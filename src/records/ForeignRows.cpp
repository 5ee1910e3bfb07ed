#include "records/ForeignRows.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace tarnlog {

namespace {

constexpr std::size_t kLooked = 64 * 1024;   ///< bytes
constexpr std::size_t kMostLines = 50;       ///< of a row
constexpr std::size_t kLongest = 64 * 1024;  ///< row that takes in another line
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string beginningOf(const ReadableFile& file) {
  std::string text(kLooked, '\0');
  text.resize(file.readAt(0, text.data(), text.size()));
  return text;
}

char lineEndOf(std::string_view beginning) {
  const bool alone = beginning.find('\n') == std::string_view::npos;
  return alone && beginning.find('\r') != std::string_view::npos ? '\r' : '\n';
}

}  // namespace

ForeignRows::ForeignRows(const ReadableFile& file, char separator) : file_(file), splitter_(separator) {
  const std::string beginning = beginningOf(file);
  lineEnd_ = lineEndOf(beginning);
  lines_.emplace(file, beginning.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0, file.size(), lineEnd_);
}

bool ForeignRows::next() {
  do {
    line_ += 1 + std::exchange(more_, 0);
    if (!lines_->next()) return false;
  } while (lines_->begin() == lines_->end());
  split();
  return true;
}

void ForeignRows::split() {
  unclosed_ = false;
  const auto length = static_cast<std::size_t>(lines_->end() - lines_->begin());
  if (std::memchr(lines_->begin(), '"', length) == nullptr) {
    cells_ = splitter_.split(lines_->begin(), lines_->end());
    return;
  }
  behind_ = lines_->nextPlace();
  raw_.assign(lines_->begin(), lines_->end());
  for (;;) {
    text_ = raw_;
    cells_ = splitter_.split(text_.data(), text_.data() + text_.size());
    unclosed_ = splitter_.unclosed();
    if (!unclosed_) return;
    if (!joins_ || more_ + 1 == kMostLines || raw_.size() > kLongest || !lines_->next()) break;
    ++more_;
    raw_ += '\n';
    raw_.append(lines_->begin(), lines_->end());
  }
  joins_ = false;
  if (more_ != 0) goOnBehindFirstLine();
}

void ForeignRows::goOnBehindFirstLine() {
  more_ = 0;
  text_.assign(raw_, 0, raw_.find('\n'));
  cells_ = splitter_.split(text_.data(), text_.data() + text_.size());
  lines_.emplace(file_, behind_, file_.size(), lineEnd_);
}

}  // namespace tarnlog
