#include "host/vehicle/obd/ObdScan.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <string>
#include <tuple>
#include <utility>

#include "host/service/Protocol.h"
#include "host/vehicle/description/DescriptionParts.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "host/vehicle/description/ObdPids.h"
#include "host/vehicle/obd/PidTrial.h"
#include "host/vehicle/obd/Vin.h"
#include "host/vehicle/session/Conversation.h"
#include "platform/base/TarnError.h"
#include "platform/text/Told.h"

namespace tarnlog::host {
namespace {

// An adapter knows sooner that an ECU is silent; this is for slow adapters.
constexpr std::chrono::milliseconds kTimeout{3000};
constexpr std::chrono::milliseconds kVinTimeout{1000};
// Where nobody knows which ECUs there are, most addresses are silent.
constexpr std::chrono::milliseconds kProbeTimeout{500};
constexpr std::chrono::milliseconds kPendingTimeout{kUsualPendingTimeout};
constexpr std::uint8_t kEngineSpeed = 0x0C;
constexpr int kAttempts = 3;
/// An adapter that was there may only have lost its plug or its network for a moment.
constexpr std::chrono::seconds kReturn{8};
/// What took longer than this to be opened, in vain, has had its chances.
constexpr std::chrono::seconds kLongOpening{2};
// ISO 15765-4: the eight ECUs of emissions on CAN.
constexpr std::int32_t kFirstEcu = 0x7E0;
constexpr std::int32_t kLastEcu = 0x7E7;
constexpr std::int32_t kGearbox = 0x7E1;
// SAE J2178: addresses of engine and transmission controllers.
constexpr std::int32_t kFirstGearboxByte = 0x18;
constexpr std::int32_t kLastGearboxByte = 0x1F;

using Pids = std::vector<std::uint8_t>;

struct FoundEcu {
  LinkTarget target;
  Pids pids;               ///< that it gives
  std::size_t listed = 0;  ///< how many it says that it has
  std::string silence;     ///< why it does not give the last one
  bool turns = false;      ///< it says that it has an engine speed
};

/// Asks ECU after ECU what it offers.
class Search {
 public:
  Search(Link& link, LinkClock& clock, const PhaseHook& phase)
      : link_(link), clock_(clock), conversation_(link, clock, kPendingTimeout), phase_(phase) {}

  /// After a failure the conversation opens the link anew.
  std::vector<FoundEcu> findPatiently() {
    for (int attempt = 1;; ++attempt) {
      const Moment begun = clock_.now();
      try {
        return findEcus();
      } catch (const TarnError&) {
        if (link_.stopAsked() || !link_.obstacle().empty()) throw;
        const Moment now = clock_.now();
        if (attempt == 1) failed_ = now;
        const bool mayComeBack = reached_ && now < failed_ + kReturn;
        const bool mute = !connected_ && now > begun + kLongOpening;
        if ((mute || attempt >= kAttempts) && !mayComeBack) throw;
      }
    }
  }
  /// The car's identification number, from the first ECU that lists it; empty when none gives it.
  std::string findVin(const std::vector<FoundEcu>& ecus);
  /// Why an ECU was not reached; empty when all were.
  const std::string& obstacle() const { return obstacle_; }

 private:
  void enter(OpeningPhase phase) const {
    if (phase_) phase_(phase);
  }
  std::vector<FoundEcu> findEcus();
  bool listsVin(const LinkTarget& target);
  std::string askVin(const LinkTarget& target);
  Pids askPids(const LinkTarget& target, std::chrono::milliseconds timeout);
  Link::Bytes askMask(const LinkTarget& target, std::uint8_t mask, std::chrono::milliseconds timeout);

  Link& link_;
  LinkClock& clock_;
  Conversation conversation_;
  const PhaseHook& phase_;
  std::string obstacle_;
  bool connected_ = false;
  bool reached_ = false;
  Moment failed_{};  ///< when, first
};

/// The four bytes of a mask; empty when the ECU gives none.
Link::Bytes Search::askMask(const LinkTarget& target, std::uint8_t mask, std::chrono::milliseconds timeout) {
  constexpr std::size_t kLength = 6;
  const Link::Bytes request{service::kCurrentData, mask};
  Link::Bytes response;
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto outcome = conversation_.exchange(target, request, timeout, response);
    if (outcome == Conversation::Outcome::unreachable) obstacle_ = conversation_.obstacle();
    if (outcome == Conversation::Outcome::unreachable || outcome == Conversation::Outcome::refused) return {};
    if (outcome == Conversation::Outcome::answered && response.size() >= kLength)
      return {response.begin() + 2, response.begin() + kLength};
  }
  return {};
}

/// The most significant bit of the first byte stands for the PID behind the mask's own.
Pids Search::askPids(const LinkTarget& target, std::chrono::milliseconds timeout) {
  Pids pids;
  for (int mask = 0; mask < 0x100; mask += kPidsPerMask) {
    const Link::Bytes bits = askMask(target, static_cast<std::uint8_t>(mask), timeout);
    if (bits.empty()) break;
    for (int i = 0; i < kPidsPerMask; ++i) {
      const int pid = mask + i + 1;
      const bool supported = (bits[static_cast<std::size_t>(i / 8)] & (0x80 >> i % 8)) != 0;
      if (supported && pid < 0x100 && !isPidMask(static_cast<std::uint8_t>(pid)))
        pids.push_back(static_cast<std::uint8_t>(pid));
    }
    if ((bits.back() & 1U) == 0) break;
    timeout = kTimeout;
  }
  return pids;
}

std::vector<FoundEcu> Search::findEcus() {
  connected_ = false;
  enter(OpeningPhase::adapter);
  conversation_.connect();
  connected_ = true;
  enter(OpeningPhase::bus);
  std::vector<LinkTarget> targets = conversation_.findEcus();
  if (!conversation_.obstacle().empty()) throw TarnError(1, "scanObdVehicle", conversation_.obstacle());
  reached_ = true;
  const auto timeout = targets.empty() ? kProbeTimeout : kTimeout;
  if (targets.empty())
    for (std::int32_t address = kFirstEcu; address <= kLastEcu; ++address)
      targets.push_back({address, std::string(kObdName)});
  std::vector<FoundEcu> ecus;
  for (const LinkTarget& target : targets) {
    enter(OpeningPhase::ecus);
    const Pids listed = askPids(target, timeout);
    if (listed.empty()) continue;
    const bool turns = std::find(listed.begin(), listed.end(), kEngineSpeed) != listed.end();
    enter(OpeningPhase::data);
    PidTrial trial(conversation_, target);
    Pids given = trial.given(listed);
    ecus.push_back({target, std::move(given), listed.size(), trial.silence(), turns});
  }
  return ecus;
}

/// A car without is recorded all the same.
std::string Search::findVin(const std::vector<FoundEcu>& ecus) {
  try {
    for (const FoundEcu& ecu : ecus) {
      if (!listsVin(ecu.target)) continue;
      std::string vin = askVin(ecu.target);
      if (!vin.empty()) return vin;
    }
  } catch (const TarnError&) {
    return {};
  }
  return {};
}

bool Search::listsVin(const LinkTarget& target) {
  constexpr std::size_t kShortest = 6;
  constexpr std::uint8_t kSecond = 0x40;  // of the mask's first byte: PID 02
  Link::Bytes response;
  const auto outcome = conversation_.exchange(
      target, std::array{service::kVehicleInformation, std::uint8_t{0}}, kVinTimeout, response);
  if (outcome != Conversation::Outcome::answered || response.size() < kShortest) return false;
  // On older buses the number of messages stands before the mask.
  const std::size_t mask = response.size() > kShortest && response[2] == 1 ? 3 : 2;
  return (response[mask] & kSecond) != 0;
}

std::string Search::askVin(const LinkTarget& target) {
  constexpr std::array<std::uint8_t, 2> kRequest{service::kVehicleInformation, 0x02};
  constexpr std::size_t kMostResponses = 8;
  Link::Bytes response;
  if (conversation_.exchange(target, kRequest, kVinTimeout, response) != Conversation::Outcome::answered)
    return {};
  std::vector<Link::Bytes> responses{response};
  while (vinOf(responses).empty() && responses.size() < kMostResponses &&
         conversation_.next(kRequest, kVinTimeout, response))
    responses.push_back(response);
  return vinOf(responses);
}

bool isGearbox(std::int32_t address) {
  return address == kGearbox || (address >= kFirstGearboxByte && address <= kLastGearboxByte);
}

/// Name and function, as other descriptions of cars call them.
std::pair<std::string, std::string> nameOf(const FoundEcu& ecu, bool engineNamed) {
  const std::int32_t address = ecu.target.address;
  if (isGearbox(address) && (engineNamed || !ecu.turns)) return {"Transmission", "Transmission control"};
  if (!engineNamed && (ecu.turns || address == kFirstEcu)) return {"Engine", "Engine control"};
  const std::string other = fmt::format("ECU {:02X}", static_cast<std::uint32_t>(address));
  return {other, other};
}

RequestDescription describePid(std::uint8_t number) {
  RequestDescription request;
  request.name = fmt::format("PID {:02X}", number);
  request.frame = {service::kCurrentData, number};
  request.timeout = kTimeout;
  if (const ObdPid* const pid = findObdPid(number)) {
    request.data = pid->data;
    return request;
  }
  DataDescription bytes;
  bytes.name = request.name + " bytes";
  bytes.layout.kind = DataKind::bytes;
  bytes.layout.firstByte = 2;
  request.data.push_back(std::move(bytes));
  return request;
}

std::string nothingGiven(const FoundEcu& ecu) {
  const auto address = static_cast<std::uint32_t>(ecu.target.address);
  const std::string text =
      ecu.listed == 1
          ? Told::tr("the ECU at address 0x{:X} gives none of the data that it lists (1 PID)", address)
          : Told::tr("the ECU at address 0x{:X} gives none of the data that it lists ({} PIDs)", address,
                     ecu.listed);
  return ecu.silence.empty() ? text : text + ": " + ecu.silence;
}

/// Why there is nothing to offer.
std::string reason(const Search& search, const std::vector<std::string>& notes) {
  if (!notes.empty()) return fmt::format("{}", fmt::join(notes, ", "));
  return search.obstacle().empty() ? "is the ignition on?" : search.obstacle();
}

EcuDescription describe(const FoundEcu& found, const std::vector<EcuDescription>& others) {
  const auto has = [&](std::string_view function) {
    return std::any_of(others.begin(), others.end(),
                       [&](const EcuDescription& each) { return each.function == function; });
  };
  EcuDescription ecu;
  std::tie(ecu.name, ecu.function) = nameOf(found, has("Engine control"));
  // A second gearbox or engine: the address tells them apart.
  if (has(ecu.function)) {
    const auto address = static_cast<std::uint32_t>(found.target.address);
    ecu.name = fmt::format("{} {:02X}", ecu.name, address);
    ecu.function = fmt::format("{} {:02X}", ecu.function, address);
  }
  ecu.address = found.target.address;
  ecu.protocol = found.target.protocol;
  ecu.initialisation = {service::kCurrentData, 0};
  ecu.timeout = kTimeout;
  for (const std::uint8_t pid : found.pids) ecu.requests.push_back(describePid(pid));
  return ecu;
}

}  // namespace

VehicleDescription scanObdVehicle(Link& link, LinkClock& clock, const PhaseHook& phase) {
  Search search(link, clock, phase);
  const std::vector<FoundEcu> found = search.findPatiently();
  VehicleDescription vehicle;
  vehicle.pendingTimeout = kPendingTimeout;
  std::vector<std::string> notes;
  // An ECU that gives nothing keeps its name: another one must not be taken for it.
  std::vector<EcuDescription> named;
  for (const FoundEcu& ecu : found) {
    named.push_back(describe(ecu, named));
    if (ecu.pids.empty())
      notes.push_back(nothingGiven(ecu));
    else
      vehicle.ecus.push_back(named.back());
  }
  if (vehicle.ecus.empty())
    throw TarnError(1, "ObdScan", "no ECU offers current data (OBD service 01): " + reason(search, notes));
  std::string vin = search.findVin(found);
  vehicle.name = vin.empty() ? "OBD car" : vin + " (OBD car)";
  // A round trip through its file: it is then the same as when it is kept and opened again.
  vehicle = parseVehicleDescription(writeVehicleDescription(vehicle),
                                    "obd2:", [](const std::string& name) -> std::string {
                                      throw TarnError(2, "ObdScan", name + ": no such file");
                                    });
  vehicle.vin = std::move(vin);
  vehicle.notes = std::move(notes);
  return vehicle;
}

}  // namespace tarnlog::host
