#include "host/vehicle/description/DescriptionWriter.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/service/HexText.h"
#include "host/vehicle/description/DescriptionParts.h"

namespace tarnlog::host {
namespace {

using Json = nlohmann::ordered_json;

const char* kindText(DataKind kind) {
  switch (kind) {
    case DataKind::integer:
      return "integer";
    case DataKind::real:
      return "double";
    case DataKind::text:
      return "text";
    case DataKind::bytes:
      return "bytes";
  }
  return "";
}

void writeField(const BitField& field, Json& json) {
  json["byte"] = field.byte;
  if (field.bytes != 1) json["bytes"] = field.bytes;
  if (field.bit != 0) json["bit"] = field.bit;
  if (field.bits != 8 * field.bytes - field.bit) json["bits"] = field.bits;
  if (field.order == ByteOrder::little) json["byteOrder"] = "little";
  if (field.isSigned) json["signed"] = true;
}

Json patternsJson(const BitPatterns& patterns) {
  if (patterns.from == patterns.to) return patterns.from;
  return Json{{"from", patterns.from}, {"to", patterns.to}};
}

void writeNumber(const DataDescription& data, Json& json) {
  const DataLayout& layout = data.layout;
  writeField(layout.field, json);
  json["type"] = kindText(layout.kind);
  if (layout.factor != 1) json["factor"] = layout.factor;
  if (layout.divisor != 1) json["divisor"] = layout.divisor;
  if (layout.offset != 0) json["offset"] = layout.offset;
  if (data.decimals) json["decimals"] = *data.decimals;
  if (!data.unit.empty()) json["unit"] = data.unit;
  json["min"] = data.minimum;
  json["max"] = data.maximum;
  for (const EnumerationEntry& entry : data.enumeration)
    json["enumeration"].push_back(Json{{"value", entry.value}, {"label", entry.label}});
  for (const BitPatterns& patterns : layout.notAvailable)
    json["notAvailable"].push_back(patternsJson(patterns));
}

void writeBytes(const DataDescription& data, Json& json) {
  const DataLayout& layout = data.layout;
  json["byte"] = layout.firstByte;
  if (layout.byteCount != 0) json["bytes"] = layout.byteCount;
  json["type"] = kindText(layout.kind);
  if (layout.kind == DataKind::text && layout.characters == CharacterSet::latin1) json["encoding"] = "latin1";
  if (!data.unit.empty()) json["unit"] = data.unit;
}

Json dataJson(const DataDescription& data) {
  Json json{{"name", data.name}};
  if (data.layout.isNumber())
    writeNumber(data, json);
  else
    writeBytes(data, json);
  if (!data.device.empty()) json["device"] = data.device;
  if (data.failure) json["failure"] = true;
  if (!data.readable) json["readable"] = false;
  if (data.reference) json["reference"] = true;
  return json;
}

Json requestJson(const RequestDescription& request, std::chrono::milliseconds usual) {
  Json json{{"name", request.name}, {"frame", hexText(request.frame)}};
  if (!request.available) json["available"] = false;
  if (request.timeout != usual) json["timeout"] = request.timeout.count();
  if (request.interval.count() != 0) json["interval"] = request.interval.count();
  if (request.refusalIsError) json["onRefusal"] = "error";
  for (const DataDescription& data : request.data) json["data"].push_back(dataJson(data));
  return json;
}

/// Above a byte addresses are identifiers on a bus, which people know in hexadecimal.
Json addressJson(std::int32_t address) {
  if (address > 0xFF) return fmt::format("0x{:X}", address);
  return address;
}

Json ecuJson(const EcuDescription& ecu) {
  Json json{{"name", ecu.name}};
  if (ecu.function != ecu.name) json["function"] = ecu.function;
  json["address"] = addressJson(ecu.address);
  if (ecu.responseAddress) json["responseAddress"] = addressJson(*ecu.responseAddress);
  json["protocol"] = ecu.protocol;
  if (!ecu.initialisation.empty()) json["initialisation"] = hexText(ecu.initialisation);
  if (ecu.timeout.count() != kUsualTimeout) json["timeout"] = ecu.timeout.count();
  json["requests"] = Json::array();
  for (const RequestDescription& request : ecu.requests)
    json["requests"].push_back(requestJson(request, ecu.timeout));
  return json;
}

}  // namespace

std::string writeVehicleDescription(const VehicleDescription& vehicle) {
  Json json{{"name", vehicle.name}};
  if (!vehicle.link.empty()) json["link"] = vehicle.link;
  if (vehicle.pendingTimeout.count() != kUsualPendingTimeout)
    json["pendingTimeout"] = vehicle.pendingTimeout.count();
  json["ecus"] = Json::array();
  for (const EcuDescription& ecu : vehicle.ecus) json["ecus"].push_back(ecuJson(ecu));
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace tarnlog::host
