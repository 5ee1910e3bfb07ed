#include "host/vehicle/simulation/VehicleSimulator.h"

#include <algorithm>

#include "host/service/ResponseCheck.h"
#include "host/vehicle/simulation/SignalValue.h"

namespace tarnlog::host {
namespace {

using std::chrono::microseconds;

constexpr std::uint8_t kServiceNotSupported = 0x11;
constexpr std::uint8_t kSubFunctionNotSupported = 0x12;
constexpr std::uint8_t kRequestOutOfRange = 0x31;

bool asksSeveralIdentifiers(std::span<const std::uint8_t> request) {
  return request[0] == service::kReadDataByIdentifier && request.size() > 3 && request.size() % 2 == 1;
}

std::string_view asText(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void refuse(std::span<const std::uint8_t> request, std::uint8_t code, Link::Bytes& bytes) {
  bytes.assign({service::kNegativeResponse, request[0], code});
}

}  // namespace

VehicleSimulator::VehicleSimulator(const VehicleDescription& description)
    : description_(description), faults_(description.simulation) {
  for (std::size_t i = 0; i < description.ecus.size(); ++i) {
    const EcuDescription& ecu = description.ecus[i];
    auto& atAddress = stations_[ecu.address];
    auto found = std::find_if(atAddress.begin(), atAddress.end(),
                              [&](const auto& entry) { return entry.first == ecu.protocol; });
    if (found == atAddress.end()) found = atAddress.insert(found, {ecu.protocol, Station{i, {}, {}}});
    Station& station = found->second;
    for (std::size_t j = 0; j < ecu.requests.size(); ++j) {
      const Frame& frame = ecu.requests[j].frame;
      station.byFrame.emplace(asText(frame), Place{i, j});
      station.services[frame[0]] = true;
    }
  }
}

void VehicleSimulator::start() { faults_.start(); }

void VehicleSimulator::answer(const LinkTarget& target, std::span<const std::uint8_t> request,
                              microseconds sinceStart, SimulatedAnswers& answers) {
  const Station* const station = findStation(target);
  if (station == nullptr || request.empty()) return;
  if (asksSeveralIdentifiers(request)) return answerSeveral(*station, request, sinceStart, answers);
  const auto described = station->byFrame.find(asText(request));
  const Place place = described != station->byFrame.end() ? described->second : Place{station->firstEcu, {}};
  const double seconds = std::chrono::duration<double>(sinceStart).count();
  const microseconds latency = latencyOf(place);
  const FaultDescription* const fault = faults_.next(place.ecu, place.request, seconds);
  writeAnswer(*station, place, request, seconds, whole_);
  deliver(fault, request, whole_, latency, answers);
}

void VehicleSimulator::deliver(const FaultDescription* fault, std::span<const std::uint8_t> request,
                               const Link::Bytes& answer, microseconds latency, SimulatedAnswers& answers) {
  const FaultKind kind = fault != nullptr ? fault->kind : FaultKind::noAnswer;
  if (fault != nullptr && kind == FaultKind::noAnswer) return;
  if (fault != nullptr && kind == FaultKind::pending) {
    refuse(request, nrc::kResponsePending, answers.add(latency));
    answers.add(latency + fault->delay) = answer;
    return;
  }
  Link::Bytes& bytes = answers.add(latency);
  bytes = answer;
  if (fault != nullptr) spoil(*fault, request, bytes);
}

/// As one answer, as late as the slowest. What the ECU does not have is left out; a fault of one of them is
/// the answer's.
void VehicleSimulator::answerSeveral(const Station& station, std::span<const std::uint8_t> request,
                                     microseconds sinceStart, SimulatedAnswers& answers) {
  const double seconds = std::chrono::duration<double>(sinceStart).count();
  Link::Bytes all;
  microseconds latency{};
  const FaultDescription* fault = nullptr;
  for (std::size_t at = 1; at < request.size(); at += 2) {
    const std::array<std::uint8_t, 3> single{request[0], request[at], request[at + 1]};
    const auto described = station.byFrame.find(asText(single));
    if (described == station.byFrame.end()) continue;
    const Place& place = described->second;
    if (const FaultDescription* const own = faults_.next(place.ecu, place.request, seconds)) fault = own;
    latency = std::max(latency, latencyOf(place));
    Link::Bytes part;
    writeDescribed(place, seconds, part);
    all.insert(all.end(), part.begin() + (all.empty() ? 0 : 1), part.end());
  }
  if (all.empty()) return refuse(request, kRequestOutOfRange, answers.add(description_.simulation.latency));
  deliver(fault, request, all, latency, answers);
}

const VehicleSimulator::Station* VehicleSimulator::findStation(const LinkTarget& target) const {
  const auto atAddress = stations_.find(target.address);
  if (atAddress == stations_.end()) return nullptr;
  for (const auto& [protocol, station] : atAddress->second)
    if (protocol == target.protocol) return &station;
  return nullptr;
}

microseconds VehicleSimulator::latencyOf(const Place& place) const {
  const SimulationDescription& simulation = description_.simulation;
  return place.request ? simulation.requests[place.ecu][*place.request].latency : simulation.latency;
}

void VehicleSimulator::writeAnswer(const Station& station, const Place& place,
                                   std::span<const std::uint8_t> request, double seconds,
                                   Link::Bytes& bytes) const {
  if (place.request) {
    writeDescribed(place, seconds, bytes);
  } else if (request[0] == service::kDiagnosticSessionControl || request[0] == service::kTesterPresent) {
    bytes.assign(request.begin(), request.begin() + (request.size() > 1 ? 2 : 1));
    bytes[0] = positiveService(request[0]);
  } else {
    refuse(request, station.services[request[0]] ? kSubFunctionNotSupported : kServiceNotSupported, bytes);
  }
}

void VehicleSimulator::writeDescribed(const Place& place, double seconds, Link::Bytes& bytes) const {
  const SimulatedRequestDescription& simulated = description_.simulation.requests[place.ecu][*place.request];
  const auto& data = description_.ecus[place.ecu].requests[*place.request].data;
  bytes = simulated.response;
  for (const DrivenData& driven : simulated.driven)
    encodeNumber(data[driven.data].layout, signalValue(driven.signal, seconds), bytes);
}

void VehicleSimulator::spoil(const FaultDescription& fault, std::span<const std::uint8_t> request,
                             Link::Bytes& bytes) {
  switch (fault.kind) {
    case FaultKind::negativeResponse:
      refuse(request, fault.code, bytes);
      break;
    case FaultKind::shortAnswer:
      bytes.resize(std::min(bytes.size(), fault.bytes));
      break;
    case FaultKind::wrongService:
      bytes[0] = static_cast<std::uint8_t>(bytes[0] ^ 0x01);
      break;
    case FaultKind::garbage:
      bytes.resize(fault.bytes);
      std::generate(bytes.begin(), bytes.end(), [this] { return faults_.randomByte(); });
      break;
    case FaultKind::noAnswer:
    case FaultKind::pending:
      break;
  }
}

}  // namespace tarnlog::host
