#include <fmt/format.h>

#include <limits>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "host/vehicle/description/DescriptionParts.h"

namespace tarnlog::host {
namespace {

using std::chrono::milliseconds;

constexpr std::uint32_t kHighestCanIdentifier = 0x1FFFFFFF;

/// Names that may occur once in their scope. The texts belong to the parsed document.
class UniqueNames {
 public:
  explicit UniqueNames(std::string_view scope) : scope_(scope) {}

  const std::string& read(const JsonPlace& place) {
    const std::string& name = place.name();
    if (!names_.insert(name).second) place.expected(fmt::format("a name that is used once {}", scope_));
    return name;
  }

 private:
  std::string_view scope_;
  std::unordered_set<std::string_view> names_;
};

milliseconds readTimeout(const JsonObject& object, std::string_view key, std::int64_t otherwise) {
  return milliseconds(object.integer(key, 1, kLongestWait, otherwise));
}

RequestDescription readRequest(const JsonPlace& place, milliseconds timeout, UniqueNames& names) {
  const JsonObject object =
      place.object({"name", "frame", "available", "timeout", "interval", "onRefusal", "data"});
  RequestDescription request;
  request.name = names.read(object.require("name"));
  request.frame = object.require("frame").frame();
  request.available = object.boolean("available", true);
  request.timeout = readTimeout(object, "timeout", timeout.count());
  request.interval = milliseconds(object.integer("interval", 0, kLongestWait, 0));
  if (const auto refusal = object.find("onRefusal"))
    request.refusalIsError = refusal->choice({"notAvailable", "error"}) == 1;
  const auto data = object.find("data");
  if (!data) return request;
  UniqueNames dataNames("in its request");
  request.data.reserve(data->size());
  for (std::size_t i = 0; i < data->size(); ++i) {
    const JsonPlace item = (*data)[i];
    request.data.push_back(readData(item));
    const JsonObject itemObject = item.object({});
    dataNames.read(itemObject.require("name"));
  }
  return request;
}

/// A name that occurs in several requests can have one definition that is the ECU's own.
void checkReferences(const JsonPlace& requests, const EcuDescription& ecu) {
  std::unordered_set<std::string_view> names;
  for (std::size_t i = 0; i < ecu.requests.size(); ++i)
    for (std::size_t j = 0; j < ecu.requests[i].data.size(); ++j) {
      const DataDescription& data = ecu.requests[i].data[j];
      if (!data.reference || names.insert(data.name).second) continue;
      const JsonPlace request = requests[i];
      const JsonObject object = request.object({});
      const JsonPlace list = object.require("data");
      list[j].fail(fmt::format("expected one reference of this name in the ECU, found a second one of \"{}\"",
                               data.name));
    }
}

EcuDescription readEcu(const JsonPlace& place, milliseconds timeout, UniqueNames& functions) {
  const JsonObject object = place.object({"name", "function", "address", "responseAddress", "protocol",
                                          "initialisation", "timeout", "requests"});
  EcuDescription ecu;
  ecu.name = object.require("name").name();
  const auto function = object.find("function");
  ecu.function = functions.read(function ? *function : object.require("name"));
  ecu.address =
      static_cast<std::int32_t>(object.require("address").natural(std::numeric_limits<std::int32_t>::max()));
  if (const auto response = object.find("responseAddress"))
    ecu.responseAddress = static_cast<std::int32_t>(response->natural(kHighestCanIdentifier));
  ecu.protocol = object.require("protocol").name();
  if (const auto frame = object.find("initialisation")) ecu.initialisation = frame->frame();
  ecu.timeout = readTimeout(object, "timeout", timeout.count());
  const JsonPlace requests = object.require("requests");
  UniqueNames names("in its ECU");
  ecu.requests.reserve(requests.size());
  for (std::size_t i = 0; i < requests.size(); ++i)
    ecu.requests.push_back(readRequest(requests[i], ecu.timeout, names));
  checkReferences(requests, ecu);
  return ecu;
}

}  // namespace

VehicleDescription parseVehicleDescription(std::string_view json, const std::string& fileName,
                                           const CompanionFiles& files) {
  const JsonValue document = parseJson(json, fileName);
  const JsonPlace root(document, fileName);
  const JsonObject object = root.object(
      {"$schema", "name", "description", "link", "timeout", "pendingTimeout", "ecus", "simulation"});
  VehicleDescription vehicle;
  vehicle.name = object.require("name").name();
  if (const auto description = object.find("description")) description->text();
  if (const auto link = object.find("link")) vehicle.link = link->name();
  const milliseconds timeout = readTimeout(object, "timeout", kUsualTimeout);
  vehicle.pendingTimeout = readTimeout(object, "pendingTimeout", kUsualPendingTimeout);
  const JsonPlace ecus = object.require("ecus");
  UniqueNames functions("as an ECU's function");
  vehicle.ecus.reserve(ecus.size());
  for (std::size_t i = 0; i < ecus.size(); ++i) vehicle.ecus.push_back(readEcu(ecus[i], timeout, functions));
  static const JsonValue kNoSimulation{JsonValue::Object{}};
  const auto simulation = object.find("simulation");
  vehicle.simulation =
      readSimulation(simulation ? *simulation : JsonPlace(kNoSimulation, fileName), vehicle, files);
  return vehicle;
}

}  // namespace tarnlog::host
