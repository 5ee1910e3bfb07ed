#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "host/link/trace/SimulatedLink.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/session/VehicleSession.h"
#include "host/vehicle/simulation/VehicleSimulator.h"
#include "platform/base/TarnError.h"
#include "tests/support/ManualLinkClock.h"

/// Bytes that begin with "R" are responses of an ECU, each after a byte with its length; with "B", of an ECU
/// that is asked for several PIDs at once; any others are a vehicle description. Whatever a description is
/// accepted for can be polled, and whatever an ECU answers, every data item has a value of its type and a
/// text.
namespace {

using namespace tarnlog;
using namespace tarnlog::host;

constexpr char kEveryKind[] = R"({
  "name": "every kind of field", "ecus": [{ "name": "E", "address": 1, "protocol": "KWP2000", "requests": [
    { "name": "R", "frame": "21 80", "data": [
      { "name": "byte", "byte": 2 },
      { "name": "signed", "byte": 3, "signed": true, "factor": 0.1, "decimals": 2 },
      { "name": "word", "byte": 2, "bytes": 2, "byteOrder": "little", "notAvailable": ["0xFFFF", 0] },
      { "name": "bits", "byte": 3, "bytes": 3, "bit": 5, "bits": 13, "signed": true },
      { "name": "long", "byte": 4, "bytes": 4, "offset": -40, "divisor": 3 },
      { "name": "rounded", "byte": 4, "bytes": 4, "signed": true, "type": "integer", "factor": 0.5 },
      { "name": "named", "byte": 8, "bits": 2, "enumeration": [{ "value": 1, "label": "one" }] },
      { "name": "ascii", "byte": 5, "bytes": 6, "type": "text" },
      { "name": "latin", "byte": 7, "type": "text", "encoding": "latin1" },
      { "name": "array", "byte": 0, "bytes": 9, "type": "bytes" },
      { "name": "rest", "byte": 12, "type": "bytes" },
      { "name": "far", "byte": 4094 } ] } ] }] })";

constexpr char kPids[] = R"({
  "name": "PIDs of several lengths", "ecus": [{ "name": "E", "address": "0x7E0", "protocol": "OBD-II", "requests": [
    { "name": "04", "frame": "01 04", "data": [ { "name": "load", "byte": 2 } ] },
    { "name": "05", "frame": "01 05", "data": [ { "name": "coolant", "byte": 2, "offset": -40 } ] },
    { "name": "0C", "frame": "01 0C", "data": [ { "name": "speed", "byte": 2, "bytes": 2, "divisor": 4 } ] },
    { "name": "0D", "frame": "01 0D", "data": [ { "name": "km/h", "byte": 2 } ] },
    { "name": "14", "frame": "01 14", "data": [ { "name": "O2", "byte": 2 } ] },
    { "name": "24", "frame": "01 24", "data": [ { "name": "lambda", "byte": 2, "bytes": 2 } ] },
    { "name": "66", "frame": "01 66", "data": [ { "name": "MAF", "byte": 3, "bytes": 2 } ] } ] }] })";

std::string noFile(const std::string&) { throw TarnError(2, "FileSystem", "No such file or directory"); }

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "vehicle_fuzzer: %s\n", what);
  std::abort();
}

void requireSound(const ferrox3::DataItem& item) {
  const ferrox3::Value& value = item.value();
  const auto* const number = std::get_if<double>(&value);
  const bool isNone = number != nullptr && std::isnan(*number);
  switch (item.typeCode()) {
    case ferrox3::kInteger:
      require(isNone || std::holds_alternative<std::int32_t>(value), "no integer");
      break;
    case ferrox3::kDouble:
      require(isNone || (number != nullptr && std::isfinite(*number)), "no number");
      break;
    case ferrox3::kString:
      require(isNone || std::holds_alternative<std::string>(value), "no text");
      break;
    default:
      require(isNone || std::holds_alternative<ferrox3::Bytes>(value), "no byte array");
      break;
  }
  require((item.valueText() == "---") >= isNone, "a missing number has a text");
  const bool mayBeEmpty = item.typeCode() == ferrox3::kString || item.typeCode() == ferrox3::kByteArray;
  require(mayBeEmpty || !item.valueText().empty(), "a number has no text");
}

/// An ECU that answers with the frames of the fuzzer's input, one for each request, and then is silent.
class InputPeer : public SimulatedPeer {
 public:
  explicit InputPeer(std::span<const std::uint8_t> input) : input_(input) {}
  bool done() const { return input_.empty(); }
  void start() override {}
  void answer(const LinkTarget&, std::span<const std::uint8_t>, std::chrono::microseconds,
              SimulatedAnswers& answers) override {
    if (done()) return;
    const std::size_t length = std::min<std::size_t>(input_[0], input_.size() - 1);
    const auto frame = input_.subspan(1, length);
    answers.add({}).assign(frame.begin(), frame.end());
    input_ = input_.subspan(1 + length);
  }

 private:
  std::span<const std::uint8_t> input_;
};

/// Requests for PIDs go out together, as on CAN.
class BundlingLink : public SimulatedLink {
 public:
  using SimulatedLink::SimulatedLink;
  bool takesSeveralPids(const LinkTarget& /*target*/) const override { return true; }
};

void pollAll(VehicleSession& session) {
  constexpr std::size_t kMost = 40;
  for (std::size_t i = 0; i < std::min(session.ecuCount(), kMost); ++i) {
    ferrox3::Ecu& ecu = session.ecu(i);
    for (std::size_t j = 0; j < std::min(ecu.requestCount(), kMost); ++j) {
      ferrox3::Request& request = ecu.request(j);
      skipOnFailure([&] { request.send(); });
      for (std::size_t k = 0; k < std::min(request.dataCount(), kMost); ++k) requireSound(request.data(k));
    }
  }
}

void readResponses(const VehicleDescription& vehicle, std::span<const std::uint8_t> input) {
  test::ManualLinkClock clock;
  InputPeer peer(input);
  BundlingLink link(clock, peer);
  VehicleSession session(vehicle, link, clock, {});
  const auto list = session.createAcquisitionList();
  for (std::size_t i = 0; i < session.ecu(0).requestCount(); ++i)
    list->add(session.ecu(0).request(i).data(0));
  const auto pollSet = list->pollSet();
  while (!peer.done()) pollAll(session);
}

void readDescription(std::string_view json) {
  VehicleDescription vehicle;
  try {
    vehicle = parseVehicleDescription(json, "vehicle.json", noFile);
  } catch (const TarnError& error) {
    require(error.description().starts_with("vehicle.json: "), "a refusal does not name the file");
    return;
  }
  test::ManualLinkClock clock;
  VehicleSimulator simulator(vehicle);
  SimulatedLink link(clock, simulator);
  VehicleSession session(vehicle, link, clock, {});
  for (int cycle = 0; cycle < 3; ++cycle) {
    pollAll(session);
    clock.step(std::chrono::microseconds(777777));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const VehicleDescription everyKind = parseVehicleDescription(kEveryKind, "vehicle.json", noFile);
  static const VehicleDescription pids = parseVehicleDescription(kPids, "vehicle.json", noFile);
  if (size > 0 && bytes[0] == 'R')
    readResponses(everyKind, {bytes + 1, size - 1});
  else if (size > 0 && bytes[0] == 'B')
    readResponses(pids, {bytes + 1, size - 1});
  else
    readDescription({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
