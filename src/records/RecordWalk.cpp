#include "records/RecordWalk.h"

#include <algorithm>
#include <string>
#include <vector>

#include "records/Record.h"

namespace tarnlog {

namespace {

constexpr std::string_view kRoot = "Tarnlog2000";
constexpr std::string_view kRow = "row";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kBlock = 256 * 1024;
constexpr std::size_t kLongest = 16 * 1024 * 1024;  ///< child of the root; configurations are much shorter

NotARecord tooLong() { return {1, "RecordWalk", "an element does not end within 16 MB, this is no record"}; }

bool isBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

/// No character of any XML document.
bool isForbidden(char c) { return static_cast<unsigned char>(c) < ' ' && !isBlank(c); }

std::string_view nameIn(std::string_view markup) {
  const std::size_t start = markup.starts_with("</") ? 2 : 1;
  return markup.substr(start, markup.find_first_of(" \t\r\n/>", start) - start);
}

bool isName(std::string_view name) {
  return !name.empty() && name.find_first_of("\"'=&") == std::string_view::npos;
}

/// Length of the beginning of a tag that ends with a whole attribute; 0 when there is none.
std::size_t wholeAttributes(std::string_view tag) {
  std::size_t whole = 0;
  for (std::size_t at = tag.find_first_of(kBlanks);;) {
    at = std::min(tag.find_first_not_of(kBlanks, at), tag.size());
    const std::size_t nameEnd = tag.find_first_of(" \t\r\n'\"/=", at);
    if (nameEnd == at || nameEnd == std::string_view::npos || tag.substr(nameEnd, 2) != "=\"") return whole;
    const std::size_t close = tag.find('"', nameEnd + 2);
    if (close == std::string_view::npos) return whole;
    whole = at = close + 1;
  }
}

/// The bytes of a file from some place on, as many as have been asked for.
class Window {
 public:
  explicit Window(const ReadBlock& read) : read_(read) {}

  std::string_view rest() const { return std::string_view(bytes_).substr(at_); }
  void skip(std::size_t count) {
    at_ += count;
    passed_ += count;
  }
  std::uint64_t passed() const { return passed_; }

  /// False at the end.
  bool more() {
    if (rest().size() > kLongest) throw tooLong();
    bytes_.erase(0, at_);
    at_ = 0;
    const std::size_t count = read_(block_.data(), block_.size());
    bytes_.append(block_, 0, count);
    return count != 0;
  }

 private:
  const ReadBlock& read_;
  std::string block_ = std::string(kBlock, '\0');
  std::string bytes_;
  std::size_t at_ = 0;
  std::uint64_t passed_ = 0;
};

/// Markup at the beginning of what is left: `cut` when another one, or the end, comes before its end.
struct Markup {
  std::size_t length = 0;
  bool cut = false;
};

class Walk {
 public:
  Walk(const ReadBlock& read, const TakePiece& take) : window_(read), take_(take) {}

  RecordFaults run() {
    while (!foreign_ && (!window_.rest().empty() || window_.more())) step();
    faults_.record = faults_.record && !foreign_;
    if (faults_.record) end();
    return faults_;
  }

 private:
  void step() {
    if (window_.rest().front() != '<') {
      const std::string_view text = window_.rest().substr(0, window_.rest().find('<'));
      takeText(text);
      window_.skip(text.size());
      return;
    }
    const Markup found = findMarkup();
    const std::string_view markup = window_.rest().substr(0, found.length);
    found.cut ? takeCut(markup) : takeMarkup(markup);
    window_.skip(found.length);
    if (names_.size() != 1 || !piece_.empty()) return;
    faults_.wholeBytes = window_.passed();
    faults_.wholeDropped = faults_.droppedBytes;
  }

  Markup findMarkup() {
    while (window_.rest().size() < 9 && window_.more()) {
    }
    const std::string_view start = window_.rest();
    if (start.starts_with("<!--")) return findClosing("-->");
    if (start.starts_with("<![CDATA[")) return findClosing("]]>");
    if (start.starts_with("<?")) return findClosing("?>");
    return findTagEnd();
  }

  Markup findClosing(std::string_view closing) {
    for (std::size_t from = 0;;) {
      const std::size_t found = window_.rest().find(closing, from);
      if (found != std::string_view::npos) return {found + closing.size(), false};
      from = window_.rest().size() - std::min(window_.rest().size(), closing.size());
      if (!window_.more()) return {window_.rest().size(), true};
    }
  }

  /// No tag has "<" in it, not even within quotes: there another one begins.
  Markup findTagEnd() {
    char quote = 0;
    for (std::size_t at = 1;; ++at) {
      if (at == window_.rest().size() && !window_.more()) return {at, true};
      const char c = window_.rest()[at];
      if (c == '<' || isForbidden(c)) return {at, true};
      if (quote != 0) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '>') {
        return {at + 1, false};
      }
    }
  }

  void takeText(std::string_view text) {
    if (names_.size() > 1 || !faults_.record) return put(text);
    for (const char c : text)
      if (isBlank(c))
        put({&c, 1});
      else
        ++faults_.droppedBytes;
  }

  void takeMarkup(std::string_view markup) {
    if (markup[1] == '?' || markup[1] == '!') return put(markup);
    if (markup[1] == '/')
      takeEnd(markup);
    else
      takeStart(markup);
  }

  void takeStart(std::string_view markup) {
    const std::string_view name = nameIn(markup);
    if (faults_.closed || !isName(name)) return drop(markup);
    if (!faults_.record) {
      foreign_ = name != kRoot;
      faults_.record = !foreign_;
    }
    if (name == kRow) closeDownTo(1);
    put(markup);
    if (!markup.ends_with("/>")) names_.emplace_back(name);
    endPiece();
  }

  void takeEnd(std::string_view markup) {
    foreign_ = foreign_ || !faults_.record;
    const auto opened = std::find(names_.rbegin(), names_.rend(), nameIn(markup));
    if (opened == names_.rend()) return drop(markup);
    closeDownTo(static_cast<std::size_t>(names_.rend() - opened));
    put(markup);
    names_.pop_back();
    endPiece();
  }

  /// At the very end of the file it is what was being written when the recorder was killed.
  void takeCut(std::string_view markup) {
    if (faults_.closed) return drop(markup);
    const bool atEnd = markup.size() == window_.rest().size();
    if (atEnd) return put(markup);
    const std::size_t kept = wholeAttributes(markup);
    const bool isRow = markup[1] != '/' && nameIn(markup) == kRow;
    if (!isRow || markup.substr(0, kept).find(" C1=") == std::string_view::npos) return drop(markup);
    closeDownTo(1);
    put(markup.substr(0, kept));
    put("/>\r\n\t");
    drop(markup.substr(kept));
    ++faults_.cutRows;
    endPiece();
  }

  void closeDownTo(std::size_t depth) {
    for (; names_.size() > depth; names_.pop_back(), ++faults_.addedEnds)
      put("</" + names_.back() + (names_.size() == depth + 1 ? ">\r\n\t" : ">"));
  }

  void endPiece() {
    if (names_.size() > 1) return;
    faults_.closed = names_.empty();
    flush();
  }

  void end() {
    if (!faults_.closed) {
      const std::size_t unfinished = std::min(piece_.find_first_not_of(kBlanks), piece_.size());
      faults_.droppedBytes += piece_.size() - unfinished;
      piece_ = "\r\n</Tarnlog2000>\r\n";
    }
    flush();
  }

  void drop(std::string_view text) {
    faults_.droppedBytes +=
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return !isBlank(c); }));
  }

  void put(std::string_view text) {
    piece_.append(text);
    if (piece_.size() > kLongest) throw tooLong();
  }

  void flush() {
    take_(piece_);
    piece_.clear();
  }

  Window window_;
  const TakePiece& take_;
  RecordFaults faults_;
  std::vector<std::string> names_;  ///< of the open elements
  std::string piece_;
  bool foreign_ = false;  ///< this is no record
};

}  // namespace

NotARecord tooManyColumns(const std::string& source) {
  return {1, source, "more than " + std::to_string(kMostRecordColumns) + " columns, this is no record"};
}

RecordFaults walkRecord(const ReadBlock& read, const TakePiece& take) { return Walk(read, take).run(); }

}  // namespace tarnlog
