#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/vehicle/description/DataLayout.h"
#include "host/vehicle/description/Signal.h"

/// What a vehicle description file says, checked and with its defaults filled in. docs/vehicle-description.md
/// explains every field.
namespace tarnlog::host {

using Frame = std::vector<std::uint8_t>;

struct EnumerationEntry {
  std::int32_t value = 0;
  std::string label;

  bool operator==(const EnumerationEntry&) const = default;
};

struct DataDescription {
  std::string name;
  DataLayout layout;
  std::optional<int> decimals;
  std::string unit;
  double minimum = 0;
  double maximum = 0;
  std::vector<EnumerationEntry> enumeration;
  std::string device;  ///< empty: none
  bool failure = false;
  bool readable = true;
  bool reference = false;

  bool operator==(const DataDescription&) const = default;
};

struct RequestDescription {
  std::string name;
  Frame frame;  ///< at least one byte
  bool available = true;
  std::chrono::milliseconds timeout{};
  std::chrono::milliseconds interval{};  ///< a cycle that comes sooner does not send it; 0: each cycle does
  bool refusalIsError = false;  ///< else what the ECU refuses is "not available" while others are polled
  std::vector<DataDescription> data;

  bool operator==(const RequestDescription&) const = default;
};

struct EcuDescription {
  std::string name;
  std::string function;
  std::int32_t address = 0;
  std::optional<std::int32_t>
      responseAddress;  ///< CAN identifier of its answers; none: follows from `address`
  std::string protocol;
  Frame initialisation;  ///< empty: none
  std::chrono::milliseconds timeout{};
  std::vector<RequestDescription> requests;

  bool operator==(const EcuDescription&) const = default;
};

/// A signal for one number of a response.
struct DrivenData {
  std::size_t data = 0;  ///< position in the request's data
  Signal signal;
};

struct SimulatedRequestDescription {
  std::chrono::microseconds latency{};
  Frame response;  ///< before the signals; long enough for them
  std::vector<DrivenData> driven;
};

enum class FaultKind : std::uint8_t {
  noAnswer,
  negativeResponse,
  shortAnswer,
  pending,
  wrongService,
  garbage
};

struct FaultDescription {
  std::size_t ecu = 0;                 ///< position
  std::optional<std::size_t> request;  ///< none: whatever is sent to the ECU
  FaultKind kind = FaultKind::noAnswer;
  std::uint8_t code = 0x10;
  std::size_t bytes = 1;
  std::chrono::microseconds delay{};
  double from = 0;  ///< seconds since the link was opened
  std::optional<double> to;
  std::uint32_t every = 1;
  double probability = 1;
};

struct SimulationDescription {
  std::chrono::microseconds latency{};  ///< for what is no request of the description
  std::uint32_t seed = 1;
  std::vector<std::vector<SimulatedRequestDescription>> requests;  ///< by position of ECU and request
  std::vector<FaultDescription> faults;
};

struct VehicleDescription {
  std::string name;
  std::string link;  ///< how the car is reached, as `openLink` takes it; empty: by the simulation
  std::chrono::milliseconds pendingTimeout{};
  std::vector<EcuDescription> ecus;
  SimulationDescription simulation;

  // Of a car that was asked what it offers, and of no file:
  std::string vin;                 ///< its identification number; empty: it tells none
  std::vector<std::string> notes;  ///< what is not offered although the car lists it, in words for the user
};

/// Gives the text of a file that a description names, by its path relative to the description's folder; fails
/// with a TarnError.
using CompanionFiles = std::function<std::string(const std::string& path)>;

/// Reads a description. Anything wrong in it is a TarnError whose text names `fileName`, the place and what
/// was expected there.
VehicleDescription parseVehicleDescription(std::string_view json, const std::string& fileName,
                                           const CompanionFiles& files);

}  // namespace tarnlog::host
