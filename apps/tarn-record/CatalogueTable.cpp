#include "apps/tarn-record/CatalogueTable.h"

#include <algorithm>
#include <cctype>

#include "platform/ferrox3/Value.h"
#include "platform/text/Numbers.h"

namespace tarnlog::record {

namespace {

std::string typeName(std::string_view code) {
  switch (leadingInteger(code)) {
    case ferrox3::kInteger:
      return "integer";
    case ferrox3::kDouble:
      return "double";
    case ferrox3::kString:
      return "text";
    case ferrox3::kByteArray:
      return "bytes";
    default:
      return std::string(code);
  }
}

/// Without the last digits of a product such as 32767 * 0.1, which is 3276.7000000000003.
std::string limitText(std::string_view exact) {
  std::string text;
  if (!exact.empty()) appendNumber(text, leadingNumber(exact), '.');
  return text;
}

CatalogueRow rowOf(XmlElement ecu, XmlElement request, XmlElement data) {
  const auto text = [](XmlElement element, const char* name) {
    return std::string(element.attributeOrEmpty(name));
  };
  CatalogueRow row{.ecu = text(ecu, "name"),
                   .request = text(request, "name"),
                   .data = text(data, "name"),
                   .function = text(ecu, "function"),
                   .address = text(ecu, "address"),
                   .unit = text(data, "unit"),
                   .minimum = limitText(data.attributeOrEmpty("min")),
                   .maximum = limitText(data.attributeOrEmpty("max")),
                   .type = typeName(data.attributeOrEmpty("type")),
                   .device = text(data, "device"),
                   .failure = data.attributeOrEmpty("failure") == "1",
                   .labels = {}};
  for (XmlElement item = data.firstChild("enumeration").firstChild("item"); item;
       item = item.nextSibling("item"))
    row.labels.push_back(text(item, "v") + "=" + text(item, "l"));
  return row;
}

}  // namespace

std::vector<CatalogueRow> catalogueRows(const SessionDocument& session) {
  std::vector<CatalogueRow> rows;
  const XmlElement root = session.document().selectSingleNode("Tarnlog2000");
  for (XmlElement ecu = root.firstChild("uce"); ecu; ecu = ecu.nextSibling("uce"))
    for (XmlElement request = ecu.firstChild("request"); request; request = request.nextSibling("request"))
      for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data"))
        rows.push_back(rowOf(ecu, request, data));
  return rows;
}

bool containsText(std::string_view text, std::string_view part) {
  const auto same = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
  };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end() || part.empty();
}

bool matches(const CatalogueRow& row, std::string_view filter) {
  return containsText(row.data, filter) || containsText(row.request, filter) ||
         containsText(row.ecu, filter) || containsText(row.unit, filter);
}

}  // namespace tarnlog::record
