#include "host/vehicle/description/CsvTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/text/TakeUntil.h"

namespace tarnlog::host {
namespace {

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
    text.remove_suffix(1);
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
  return text;
}

}  // namespace

CsvTable::CsvTable(std::string text) : text_(std::move(text)) {
  std::string_view rest = text_;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
  for (std::string_view header = trimmed(takeUntil(rest, '\n')); !header.empty();)
    names_.push_back(trimmed(takeUntil(header, ',')));
  for (std::size_t line = 2; !rest.empty(); ++line) {
    const std::string_view row = trimmed(takeUntil(rest, '\n'));
    if (row.empty()) continue;
    rows_.push_back(row);
    lineNumbers_.push_back(line);
  }
}

std::size_t CsvTable::find(std::string_view name) const {
  return static_cast<std::size_t>(std::find(names_.begin(), names_.end(), name) - names_.begin());
}

std::vector<double> CsvTable::column(std::size_t position) const {
  if (rows_.empty()) throw TarnError(1, "CSV table", "expected at least one row of numbers, found none");
  std::vector<double> numbers;
  numbers.reserve(rows_.size());
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    std::string_view rest = rows_[row];
    for (std::size_t skipped = 0; skipped < position; ++skipped) takeUntil(rest, ',');
    const std::string_view cell = trimmed(takeUntil(rest, ','));
    double number = 0;
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), number);
    if (error != std::errc{} || end != cell.data() + cell.size() || !std::isfinite(number))
      throw TarnError(1, "CSV table",
                      fmt::format("line {}, column {}: expected a number, found \"{}\"", lineNumbers_[row],
                                  position + 1, cell.substr(0, 40)));
    numbers.push_back(number);
  }
  return numbers;
}

}  // namespace tarnlog::host
