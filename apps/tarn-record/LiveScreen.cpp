#include "apps/tarn-record/LiveScreen.h"

#include <fmt/format.h>
#include <sys/ioctl.h>

#include "apps/common/WrappedText.h"

namespace tarnlog::record {

namespace {

constexpr const char* kEraseToEnd = "\033[K";
constexpr const char* kEraseBelow = "\033[J";

}  // namespace

LiveScreen::Size LiveScreen::size() const {
  winsize size{};
  const bool known = ::ioctl(descriptor_, TIOCGWINSZ, &size) == 0 && size.ws_col > 1 && size.ws_row > 1;
  return known ? Size{size.ws_col, size.ws_row} : Size{};
}

bool LiveScreen::ready() {
  out_.flush();
  return out_.empty();
}

/// The cursor stands behind the last line. A terminal that was made narrower has wrapped the others.
std::string LiveScreen::toTop() const {
  if (drawn_.empty()) return {};
  const std::size_t width = size().width;
  std::size_t up = 0;
  for (const std::size_t characters : drawn_) up += characters == 0 ? 1 : (characters + width - 1) / width;
  return up > 1 ? fmt::format("\r\033[{}A", up - 1) : "\r";
}

void LiveScreen::draw(const std::vector<std::string>& lines) {
  std::string text = toTop();
  drawn_.clear();
  for (const std::string& line : lines) {
    if (!drawn_.empty()) text += "\r\n";
    text += line + kEraseToEnd;
    drawn_.push_back(charactersOf(line));
  }
  out_.write(text + kEraseBelow);
}

void LiveScreen::erase() {
  if (drawn_.empty()) return;
  out_.write(toTop() + kEraseBelow);
  drawn_.clear();
}

}  // namespace tarnlog::record
