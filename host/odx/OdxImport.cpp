#include "host/odx/OdxImport.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <utility>

#include "host/odx/LeftOut.h"
#include "host/odx/OdxFrame.h"
#include "host/odx/OdxLayer.h"
#include "host/odx/OdxResponse.h"
#include "host/service/Services.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

constexpr std::array<std::uint8_t, 5> kReadServices{
    service::kCurrentData, service::kVehicleInformation, service::kReadEcuIdentification,
    service::kReadDataByLocalIdentifier, service::kReadDataByIdentifier};
constexpr std::int32_t kHighestCanIdentifier = 0x1FFFFFFF;
constexpr std::int64_t kHighestAddress = std::numeric_limits<std::int32_t>::max();
constexpr std::chrono::milliseconds kTimeout{200};
constexpr std::chrono::milliseconds kPendingTimeout{5000};

std::string uniqueIn(std::set<std::string>& names, const std::string& name, const std::string& otherwise) {
  std::string own = name.empty() ? otherwise : name;
  if (own.empty()) own = "unnamed";
  if (names.contains(own) && !otherwise.empty()) own = fmt::format("{} ({})", own, otherwise);
  const std::string wanted = own;
  for (int i = 2; !names.insert(own).second; ++i) own = fmt::format("{} {}", wanted, i);
  return own;
}

class Importer {
 public:
  explicit Importer(const std::vector<PdxEntry>& entries) : library_(entries) {}

  OdxImport run(const std::string& name) {
    import_.vehicle.name = name;
    import_.vehicle.pendingTimeout = kPendingTimeout;
    for (const XmlElement variant : variants()) addEcu(OdxLayer(library_, variant));
    if (import_.vehicle.ecus.empty())
      throw TarnError(1, "importOdx", "expected ECU variants with read services, found none" + reasons());
    return std::move(import_);
  }

 private:
  /// Why the first of what there was could not be taken over.
  std::string reasons() const {
    constexpr std::size_t kShown = 3;
    std::string text;
    for (std::size_t i = 0; i < std::min(kShown, import_.leftOut.size()); ++i)
      text += (i == 0 ? "; left out: " : "; ") + import_.leftOut[i];
    return text + (import_.leftOut.size() > kShown ? "; ..." : "");
  }

  /// ECU variants, and base variants that no ECU variant refines.
  std::vector<XmlElement> variants() const {
    std::vector<XmlElement> all = library_.layers("ECU-VARIANT");
    std::set<const void*> refined;
    for (const XmlElement variant : all)
      for (const XmlElement parent : variant.selectNodes("PARENT-REFS/PARENT-REF"))
        refined.insert(library_.follow(parent).node());
    for (const XmlElement base : library_.layers("BASE-VARIANT"))
      if (!refined.contains(base.node())) all.push_back(base);
    return all;
  }

  void addEcu(const OdxLayer& layer) {
    EcuDescription ecu;
    const std::string shortName = childText(layer.variant(), "SHORT-NAME");
    ecu.name = displayName(layer.variant());
    if (ecu.name.empty()) ecu.name = "ECU";
    ecu.timeout = kTimeout;
    std::set<std::string> names;
    for (const XmlElement service : layer.services()) addRequest(layer, service, ecu, names);
    for (const XmlElement job : layer.jobs())
      import_.leftOut.push_back(ecu.name + " / " + displayName(job) + ": is a job that runs code of its own");
    if (ecu.requests.empty()) {
      import_.leftOut.push_back(ecu.name + ": has no service that reads data");
      return;
    }
    ecu.function = uniqueIn(functions_, ecu.name, shortName);
    ecu.protocol = usesKwp(ecu) ? "KWP2000" : "UDS";
    ecu.address = addressOf(layer, ecu);
    ecu.responseAddress = responseAddressOf(layer, ecu);
    import_.vehicle.ecus.push_back(std::move(ecu));
  }

  void addRequest(const OdxLayer& layer, XmlElement service, EcuDescription& ecu,
                  std::set<std::string>& names) {
    const std::string place = ecu.name + " / " + displayName(service);
    try {
      RequestDescription request;
      request.timeout = kTimeout;
      request.frame = readOdxFrame(layer, library_.follow(service.firstChild("REQUEST-REF")));
      if (std::ranges::find(kReadServices, request.frame[0]) == kReadServices.end())
        throw LeftOut(fmt::format("is not a service that reads data ({:02X})", request.frame[0]));
      const auto responses = service.selectNodes("POS-RESPONSE-REFS/POS-RESPONSE-REF");
      if (responses.empty()) throw LeftOut("has no positive response");
      request.data = readOdxResponse(
          layer, library_.follow(responses[0]), [&](const std::string& data, const std::string& reason) {
            import_.leftOut.push_back(fmt::format("{} / {}: {}", place, data, reason));
          });
      for (std::size_t i = 1; i < responses.size(); ++i)
        import_.leftOut.push_back(fmt::format("{} / {}: is another positive response, only the first is read",
                                              place, displayName(library_.follow(responses[i]))));
      if (request.data.empty()) throw LeftOut("has no data that can be read");
      request.name = uniqueIn(names, displayName(service), childText(service, "SHORT-NAME"));
      ecu.requests.push_back(std::move(request));
    } catch (const LeftOut& reason) {
      import_.leftOut.push_back(place + ": " + reason.what());
    }
  }

  static bool usesKwp(const EcuDescription& ecu) {
    return std::ranges::any_of(ecu.requests, [](const RequestDescription& request) {
      return request.frame[0] == service::kReadDataByLocalIdentifier ||
             request.frame[0] == service::kReadEcuIdentification;
    });
  }

  std::int32_t addressOf(const OdxLayer& layer, const EcuDescription& ecu) {
    for (const char* name : {"CP_CanPhysReqId", "CP_DoIPLogicalEcuAddress", "CP_PhysReqTargetAddr"})
      if (const auto told = layer.communicationParameter(name); told && *told <= kHighestAddress) {
        const auto address = static_cast<std::int32_t>(*told);
        if (!addresses_.insert(address).second)
          import_.notes.push_back(fmt::format(
              "{}: another ECU has the address 0x{:X} too; if they are variants of one, keep the one "
              "that your car has",
              ecu.function, address));
        return address;
      }
    const auto address = static_cast<std::int32_t>(import_.vehicle.ecus.size()) + 1;
    import_.notes.push_back(fmt::format("{}: the container does not tell its address; {} stands in for it",
                                        ecu.function, address));
    return address;
  }

  /// Told only where it is not the one that follows from the request's identifier (ISO 15765-4).
  std::optional<std::int32_t> responseAddressOf(const OdxLayer& layer, const EcuDescription& ecu) {
    const std::int32_t address = ecu.address;
    const auto request = layer.communicationParameter("CP_CanPhysReqId");
    const auto response = layer.communicationParameter("CP_CanRespUSDTId");
    if (request != address || !response) return {};
    if (*response > kHighestCanIdentifier) {
      import_.leftOut.push_back(
          fmt::format("{}: its response identifier 0x{:X} has more than 29 bits", ecu.name, *response));
      return {};
    }
    const bool follows =
        isPhysical29(address) ? *response == (0x18DAF100 | (address >> 8 & 0xFF)) : *response == address + 8;
    return follows ? std::nullopt : std::optional(static_cast<std::int32_t>(*response));
  }

  static bool isPhysical29(std::int32_t identifier) { return (identifier & 0x1FFF00FF) == 0x18DA00F1; }

  OdxLibrary library_;
  OdxImport import_;
  std::set<std::string> functions_;
  std::set<std::int32_t> addresses_;
};

}  // namespace

OdxImport importOdx(const std::vector<PdxEntry>& entries, const std::string& vehicleName) {
  return Importer(entries).run(vehicleName);
}

}  // namespace tarnlog::host
