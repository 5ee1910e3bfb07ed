#include "apps/tarn-record/TextTable.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "apps/common/TerminalText.h"

namespace tarnlog::record {

namespace {

constexpr std::size_t kSpacing = 2;

}  // namespace

std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void TextTable::add(std::vector<std::string> cells) {
  for (std::string& cell : cells) cell = printableLine(cell);
  rows_.push_back(std::move(cells));
}

std::vector<std::size_t> TextTable::widths() const {
  std::vector<std::size_t> widths(columns_.size());
  for (const std::vector<std::string>& cells : rows_)
    for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], widthOf(cells[i]));
  return widths;
}

std::size_t TextTable::width() const {
  const std::vector<std::size_t> each = widths();
  return std::accumulate(each.begin(), each.end(), indent_ + kSpacing * (each.size() - 1));
}

std::string TextTable::text() const {
  const std::vector<std::size_t> each = widths();
  std::string out;
  for (const std::vector<std::string>& cells : rows_) {
    std::string line(indent_, ' ');
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const std::string blanks(each[i] - widthOf(cells[i]), ' ');
      line += columns_[i] == Align::Right ? blanks + cells[i] : cells[i] + blanks;
      line.append(kSpacing, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out += line + "\n";
  }
  return out;
}

}  // namespace tarnlog::record
