#include "apps/tarn-record/ListCommand.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <vector>

#include "apps/common/TerminalText.h"
#include "apps/tarn-record/CatalogueTable.h"
#include "apps/tarn-record/TextTable.h"
#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

bool isNumber(const CatalogueRow& row) { return row.type != "text" && row.type != "bytes"; }

std::vector<std::string> cellsOf(const CatalogueRow& row) {
  const std::string device =
      row.device.empty() || !row.failure ? row.device : Told::tr("{} (failure)", row.device);
  return {row.ecu,
          row.request,
          row.data,
          row.unit,
          isNumber(row) ? Told::tr("{} to {}", row.minimum, row.maximum) : "",
          row.type,
          device};
}

std::string table(const std::vector<CatalogueRow>& rows) {
  TextTable table(std::vector(7, TextTable::Align::Left));
  table.add({Told::tr("ECU"), Told::tr("REQUEST"), Told::tr("DATA"), Told::tr("UNIT"), Told::tr("RANGE"),
             Told::tr("TYPE"), Told::tr("DEVICE")});
  for (const CatalogueRow& row : rows) table.add(cellsOf(row));
  return table.text();
}

/// What is sent for a row, and so what is asked together; empty where the vehicle does not tell.
std::string frameOf(const ferrox3::Session& vehicle, const CatalogueRow& row) {
  std::string frame;
  skipOnFailure([&] {
    for (std::size_t i = 0; i < vehicle.ecuCount() && frame.empty(); ++i) {
      const ferrox3::Ecu& ecu = vehicle.ecu(i);
      if (ecu.name() != row.ecu || std::to_string(ecu.address()) != row.address) continue;
      if (const ferrox3::Request* const request = ecu.findRequest(row.request))
        frame = request->frameText(true);
    }
  });
  return frame;
}

std::string jsonArray(const ferrox3::Session& vehicle, const std::vector<CatalogueRow>& rows) {
  nlohmann::ordered_json array = nlohmann::ordered_json::array();
  for (const CatalogueRow& row : rows) {
    nlohmann::ordered_json item{{"ecu", row.ecu},
                                {"request", row.request},
                                {"data", row.data},
                                {"unit", row.unit},
                                {"type", row.type}};
    item["function"] = row.function;
    if (!row.address.empty()) item["address"] = leadingInteger(row.address);
    item["frame"] = frameOf(vehicle, row);
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

std::string catalogueList(const ferrox3::Session& vehicle, const SessionDocument& session,
                          const std::string& filter, bool json) {
  std::vector<CatalogueRow> rows = catalogueRows(session);
  std::erase_if(rows, [&](const CatalogueRow& row) { return !matches(row, filter); });
  return json ? jsonArray(vehicle, rows) : table(rows);
}

}  // namespace tarnlog::record
