#include "apps/tarn-record/ListCommand.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <vector>

#include "apps/common/TerminalText.h"
#include "apps/tarn-record/CatalogueTable.h"
#include "platform/text/Numbers.h"

namespace tarnlog::record {

namespace {

using Cells = std::array<std::string, 7>;

bool isNumber(const CatalogueRow& row) { return row.type != "text" && row.type != "bytes"; }

Cells cellsOf(const CatalogueRow& row) {
  const std::string device = row.device.empty() || !row.failure ? row.device : row.device + " (failure)";
  return {row.ecu,  row.request, row.data, row.unit, isNumber(row) ? row.minimum + " to " + row.maximum : "",
          row.type, device};
}

/// Characters of a UTF-8 text.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string table(const std::vector<CatalogueRow>& rows) {
  std::vector<Cells> lines{{"ECU", "REQUEST", "DATA", "UNIT", "RANGE", "TYPE", "DEVICE"}};
  for (const CatalogueRow& row : rows) {
    lines.push_back(cellsOf(row));
    for (std::string& cell : lines.back()) cell = printableLine(cell);
  }
  std::array<std::size_t, 7> widths{};
  for (const Cells& cells : lines)
    for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], widthOf(cells[i]));
  std::string out;
  for (const Cells& cells : lines) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
      line += cells[i] + std::string(widths[i] - widthOf(cells[i]) + 2, ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    out += line + "\n";
  }
  return out;
}

std::string jsonArray(const std::vector<CatalogueRow>& rows) {
  nlohmann::ordered_json array = nlohmann::ordered_json::array();
  for (const CatalogueRow& row : rows) {
    nlohmann::ordered_json item{{"ecu", row.ecu},
                                {"request", row.request},
                                {"data", row.data},
                                {"unit", row.unit},
                                {"type", row.type}};
    if (isNumber(row)) item["min"] = leadingNumber(row.minimum);
    if (isNumber(row)) item["max"] = leadingNumber(row.maximum);
    if (!row.device.empty()) item["device"] = row.device;
    if (!row.device.empty()) item["failure"] = row.failure;
    if (!row.labels.empty()) item["enumeration"] = row.labels;
    array.push_back(std::move(item));
  }
  // The escapes are JSON's, too.
  return printableText(array.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace)) + "\n";
}

}  // namespace

std::string catalogueList(const SessionDocument& session, const std::string& filter, bool json) {
  std::vector<CatalogueRow> rows = catalogueRows(session);
  std::erase_if(rows, [&](const CatalogueRow& row) { return !matches(row, filter); });
  return json ? jsonArray(rows) : table(rows);
}

}  // namespace tarnlog::record
