#include "apps/tarn-record/XmlRepair.h"

namespace tarnlog::record {

namespace {

constexpr std::string_view kRoot = "Tarnlog2000";

/// Walks over markup and remembers where the last finished child of the root ends.
class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text) {}

  void run() {
    while (!rootClosed_ && valid_) {
      const std::size_t open = text_.find('<', at_);
      if (open == std::string_view::npos) return;
      const std::size_t end = markupEnd(open);
      if (end == std::string_view::npos) return;
      take(text_.substr(open, end - open), end);
      at_ = end;
    }
  }

  bool isRecord() const { return valid_ && rootSeen_; }
  bool rootClosed() const { return rootClosed_; }
  std::size_t keep() const { return keep_; }

 private:
  /// Behind the markup that starts here; npos when it is cut short.
  std::size_t markupEnd(std::size_t open) const {
    const std::string_view rest = text_.substr(open);
    const auto behind = [&](std::string_view closing) {
      const std::size_t found = text_.find(closing, open);
      return found == std::string_view::npos ? found : found + closing.size();
    };
    if (rest.starts_with("<!--")) return behind("-->");
    if (rest.starts_with("<![CDATA[")) return behind("]]>");
    if (rest.starts_with("<?")) return behind("?>");
    char quote = 0;
    for (std::size_t i = open; i < text_.size(); ++i) {
      const char c = text_[i];
      if (quote != 0) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '>') {
        return i + 1;
      }
    }
    return std::string_view::npos;
  }

  void take(std::string_view markup, std::size_t end) {
    if (markup[1] == '?' || markup[1] == '!') return;
    if (markup[1] == '/') {
      --depth_;
    } else {
      if (depth_ == 0) startRoot(markup);
      if (markup[markup.size() - 2] != '/') ++depth_;
    }
    if (depth_ == 0) rootClosed_ = true;
    if (depth_ < 0) valid_ = false;
    if (depth_ == 1) keep_ = end;
  }

  void startRoot(std::string_view markup) {
    const std::string_view name = markup.substr(1, markup.find_first_of(" \t\r\n/>") - 1);
    valid_ = !rootSeen_ && name == kRoot;
    rootSeen_ = true;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t keep_ = 0;
  int depth_ = 0;
  bool rootSeen_ = false;
  bool rootClosed_ = false;
  bool valid_ = true;
};

}  // namespace

std::optional<XmlRepair> repairXml(std::string_view text) {
  Walk walk(text);
  walk.run();
  if (!walk.isRecord()) return std::nullopt;
  if (walk.rootClosed()) return XmlRepair{true, 0, std::string(text)};
  std::string closed(text.substr(0, walk.keep()));
  const std::size_t unfinished = text.find_first_not_of(" \t\r\n", walk.keep());
  const std::size_t dropped = unfinished == std::string_view::npos ? 0 : text.size() - unfinished;
  return XmlRepair{false, dropped, closed + "\r\n</Tarnlog2000>\r\n"};
}

}  // namespace tarnlog::record
