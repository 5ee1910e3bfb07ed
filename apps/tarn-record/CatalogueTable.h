#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/SessionDocument.h"

namespace tarnlog::record {

/// One data item of the catalogue, as text.
struct CatalogueRow {
  std::string ecu;
  std::string request;
  std::string data;
  std::string function;  ///< of the ECU
  std::string address;   ///< of the ECU, decimal
  std::string unit;
  std::string minimum;
  std::string maximum;
  std::string type;  ///< integer, double, text, bytes, or the code of another type
  std::string device;
  bool failure = false;
  std::vector<std::string> labels;  ///< of an enumeration, "value=label"

  std::string path() const { return ecu + "/" + request + "/" + data; }
};

/// All data items in document order.
std::vector<CatalogueRow> catalogueRows(const SessionDocument& session);

/// Whether name, request, ECU or unit contains the text, in any case.
bool matches(const CatalogueRow& row, std::string_view filter);

/// In any case (ASCII).
bool containsText(std::string_view text, std::string_view part);

}  // namespace tarnlog::record
