#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "host/vehicle/description/CsvTable.h"
#include "host/vehicle/description/DescriptionParts.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr std::size_t kLongestResponse = 4095;
constexpr std::int64_t kLatency = 5;
constexpr std::int64_t kPendingDelay = 100;

/// Positions by name, for one list.
class Index {
 public:
  template <class List, class NameOf>
  Index(const List& list, NameOf nameOf) {
    for (std::size_t i = 0; i < list.size(); ++i) positions_.emplace(nameOf(list[i]), i);
  }

  std::optional<std::size_t> find(std::string_view name) const {
    const auto found = positions_.find(name);
    if (found == positions_.end()) return std::nullopt;
    return found->second;
  }

 private:
  std::unordered_map<std::string_view, std::size_t> positions_;
};

/// The beginning of a positive answer, and zeros up to the last byte of data.
Frame zeroResponse(const RequestDescription& request) {
  const std::size_t repeated = repeatedBytes(request.frame);
  std::size_t length = repeated;
  for (const DataDescription& data : request.data) length = std::max(length, data.layout.neededLength());
  Frame response(length);
  std::copy_n(request.frame.begin(), repeated, response.begin());
  response[0] = positiveService(request.frame[0]);
  return response;
}

class SimulationReader {
 public:
  SimulationReader(const VehicleDescription& vehicle, const CompanionFiles& files)
      : vehicle_(vehicle),
        files_(files),
        ecus_(vehicle.ecus, [](const EcuDescription& ecu) -> std::string_view { return ecu.function; }),
        requests_(vehicle.ecus.size()) {}

  SimulationDescription read(const JsonPlace& place) {
    const JsonObject object = place.object({"latency", "seed", "requests", "faults"});
    SimulationDescription simulation;
    simulation.latency = milliseconds(object.integer("latency", 0, kLongestWait, kLatency));
    simulation.seed =
        static_cast<std::uint32_t>(object.integer("seed", 0, std::numeric_limits<std::uint32_t>::max(), 1));
    for (const EcuDescription& ecu : vehicle_.ecus) {
      auto& requests = simulation.requests.emplace_back();
      requests.reserve(ecu.requests.size());
      for (const RequestDescription& request : ecu.requests)
        requests.push_back(SimulatedRequestDescription{simulation.latency, zeroResponse(request), {}});
    }
    if (const auto requests = object.find("requests"))
      for (std::size_t i = 0; i < requests->size(); ++i) readRequest((*requests)[i], simulation);
    if (const auto faults = object.find("faults"))
      for (std::size_t i = 0; i < faults->size(); ++i) simulation.faults.push_back(readFault((*faults)[i]));
    return simulation;
  }

 private:
  std::size_t findEcu(const JsonPlace& place) const {
    if (const auto found = ecus_.find(place.text())) return *found;
    place.expected("the function of an ECU of this vehicle");
  }

  std::size_t findRequest(std::size_t ecu, const JsonPlace& place) {
    auto& index = requests_[ecu];
    if (!index)
      index = std::make_unique<Index>(
          vehicle_.ecus[ecu].requests,
          [](const RequestDescription& request) -> std::string_view { return request.name; });
    if (const auto found = index->find(place.text())) return *found;
    place.expected(fmt::format("a request of the ECU \"{}\"", vehicle_.ecus[ecu].function));
  }

  void readRequest(const JsonPlace& place, SimulationDescription& simulation) {
    const JsonObject object = place.object({"ecu", "request", "latency", "response", "signals"});
    const std::size_t ecu = findEcu(object.require("ecu"));
    const std::size_t position = findRequest(ecu, object.require("request"));
    if (!seen_.insert(&vehicle_.ecus[ecu].requests[position]).second)
      object.require("request").expected("a request that has no other entry");
    const RequestDescription& request = vehicle_.ecus[ecu].requests[position];
    SimulatedRequestDescription& simulated = simulation.requests[ecu][position];
    if (const auto latency = object.find("latency"))
      simulated.latency = milliseconds(latency->integer(0, kLongestWait));
    if (const auto response = object.find("response")) simulated.response = readResponse(*response, request);
    if (const auto signals = object.find("signals")) readSignals(*signals, request, simulated);
  }

  static Frame readResponse(const JsonPlace& place, const RequestDescription& request) {
    Frame response = place.frame();
    if (classifyResponse(request.frame, response) == ResponseClass::positive) return response;
    Frame start = zeroResponse(request);
    start.resize(repeatedBytes(request.frame));
    place.expected(fmt::format("bytes that begin with \"{}\"", hexText(start)));
  }

  void readSignals(const JsonPlace& place, const RequestDescription& request,
                   SimulatedRequestDescription& simulated) {
    const JsonObject signals = place.object({});
    const Index index(request.data,
                      [](const DataDescription& data) -> std::string_view { return data.name; });
    for (std::size_t i = 0; i < signals.size(); ++i) {
      const JsonPlace signal = signals.at(i);
      const auto position = index.find(signals.keyAt(i));
      if (!position)
        signal.fail(fmt::format("expected the name of a data item of the request \"{}\"", request.name));
      const DataLayout& layout = request.data[*position].layout;
      if (!layout.isNumber()) {
        putBytes(signal, layout, simulated.response);
        continue;
      }
      if (simulated.response.size() < layout.neededLength()) simulated.response.resize(layout.neededLength());
      simulated.driven.push_back(DrivenData{*position, readSignal(signal, request.data[*position])});
    }
  }

  static void putBytes(const JsonPlace& place, const DataLayout& layout, Frame& response) {
    const JsonObject object = place.object({"kind", "value"});
    object.require("kind").choice({"constant"});
    const JsonPlace value = object.require("value");
    const Frame bytes =
        layout.kind == DataKind::text ? encodeText(layout.characters, value.text()) : value.frame();
    const std::size_t room = layout.byteCount != 0 ? layout.byteCount : kLongestResponse - layout.firstByte;
    if (bytes.size() > room) value.expected(fmt::format("at most {} bytes", room));
    const std::size_t length = layout.firstByte + std::max<std::size_t>(bytes.size(), layout.byteCount);
    if (response.size() < length) response.resize(length);
    std::copy(bytes.begin(), bytes.end(), response.begin() + layout.firstByte);
  }

  Signal readSignal(const JsonPlace& place, const DataDescription& data) {
    const JsonObject kind = place.object({});
    switch (kind.require("kind").choice({"constant", "ramp", "sine", "square", "table"})) {
      case 0:
        return readConstant(place, data);
      case 1:
        return readRamp(place);
      case 2:
        return readWave(place, Signal::Kind::sine, "mean", "amplitude");
      case 3:
        return readWave(place, Signal::Kind::square, "low", "high");
      default:
        break;
    }
    return kind.find("file") ? readFileTable(place) : readTable(place);
  }

  static Signal readConstant(const JsonPlace& place, const DataDescription& data) {
    const JsonObject object = place.object({"kind", "value"});
    const JsonPlace value = object.require("value");
    Signal signal;
    if (!value.isText()) {
      signal.first = value.number();
      return signal;
    }
    const auto entry =
        std::find_if(data.enumeration.begin(), data.enumeration.end(),
                     [&](const EnumerationEntry& candidate) { return candidate.label == value.text(); });
    if (entry == data.enumeration.end()) value.expected("a number, or a label of the item's enumeration");
    signal.first = entry->value;
    return signal;
  }

  static double readPeriod(const JsonObject& object, std::string_view key) {
    const JsonPlace place = object.require(key);
    const double period = place.number();
    if (!(period > 0)) place.expected("a number of seconds above 0");
    return period;
  }

  static double readSeconds(const JsonPlace& place) {
    const double seconds = place.number();
    if (seconds < 0) place.expected("a number of seconds from 0 on");
    return seconds;
  }

  static bool readRepeats(const JsonObject& object) {
    const auto place = object.find("after");
    return !place || place->choice({"repeat", "hold"}) == 0;
  }

  static Signal readRamp(const JsonPlace& place) {
    const JsonObject object = place.object({"kind", "from", "to", "period", "after"});
    Signal signal;
    signal.kind = Signal::Kind::ramp;
    signal.first = object.require("from").number();
    signal.second = object.require("to").number();
    signal.period = readPeriod(object, "period");
    signal.repeats = readRepeats(object);
    return signal;
  }

  static Signal readWave(const JsonPlace& place, Signal::Kind kind, std::string_view first,
                         std::string_view second) {
    const JsonObject object = place.object({"kind", first, second, "period", "delay"});
    Signal signal;
    signal.kind = kind;
    signal.first = object.require(first).number();
    signal.second = object.require(second).number();
    signal.period = readPeriod(object, "period");
    if (const auto delay = object.find("delay")) signal.delay = readSeconds(*delay);
    return signal;
  }

  static void readTableEnd(const JsonObject& object, double lastTime, double lastStep, Signal& signal) {
    signal.kind = Signal::Kind::table;
    signal.interpolates = object.boolean("interpolate", false);
    signal.repeats = readRepeats(object) && signal.values.size() > 1;
    if (signal.repeats) signal.period = lastTime + lastStep;
  }

  static Signal readTable(const JsonPlace& place) {
    const JsonObject object = place.object({"kind", "times", "values", "interpolate", "after"});
    const JsonPlace times = object.require("times");
    const JsonPlace values = object.require("values");
    if (times.size() == 0) times.expected("at least one time");
    if (values.size() != times.size())
      values.fail(fmt::format("expected as many values as times, {}, found {}", times.size(), values.size()));
    Signal signal;
    for (std::size_t i = 0; i < times.size(); ++i) {
      const double time = readSeconds(times[i]);
      if (i > 0 && time <= signal.times.back()) times[i].expected("a time after the one before it");
      signal.times.push_back(time);
      signal.values.push_back(values[i].number());
    }
    const double last = signal.times.back();
    readTableEnd(object, last, signal.times.size() > 1 ? last - signal.times[signal.times.size() - 2] : 0,
                 signal);
    return signal;
  }

  Signal readFileTable(const JsonPlace& place) {
    const JsonObject object = place.object({"kind", "file", "column", "interval", "interpolate", "after"});
    const JsonPlace file = object.require("file");
    const JsonPlace column = object.require("column");
    Signal signal;
    signal.interval = readPeriod(object, "interval");
    const CsvTable& table = openTable(file);
    const std::size_t position = table.find(column.text());
    if (position == table.columnNames().size())
      column.expected(fmt::format("one of the columns {}", fmt::join(table.columnNames(), ", ")));
    try {
      signal.values = table.column(position);
    } catch (const TarnError& error) {
      column.fail(fmt::format("{}: {}", file.text(), error.description()));
    }
    const double last = static_cast<double>(signal.values.size() - 1) * signal.interval;
    readTableEnd(object, last, signal.interval, signal);
    return signal;
  }

  const CsvTable& openTable(const JsonPlace& file) {
    auto& table = tables_[file.name()];
    if (table) return *table;
    try {
      table = std::make_unique<CsvTable>(files_(file.text()));
    } catch (const TarnError& error) {
      file.fail(fmt::format("expected a readable file; {}", error.description()));
    }
    return *table;
  }

  FaultDescription readFault(const JsonPlace& place) {
    const JsonObject object = place.object(
        {"ecu", "request", "kind", "code", "bytes", "delay", "from", "to", "every", "probability"});
    FaultDescription fault;
    fault.ecu = findEcu(object.require("ecu"));
    if (const auto request = object.find("request")) fault.request = findRequest(fault.ecu, *request);
    fault.kind = static_cast<FaultKind>(object.require("kind").choice(
        {"noAnswer", "negativeResponse", "shortAnswer", "pending", "wrongService", "garbage"}));
    if (const auto code = object.find("code")) fault.code = static_cast<std::uint8_t>(code->natural(0xFF));
    fault.bytes = static_cast<std::size_t>(object.integer("bytes", 0, kLongestResponse, 1));
    fault.delay = milliseconds(object.integer("delay", 0, kLongestWait, kPendingDelay));
    if (const auto from = object.find("from")) fault.from = readSeconds(*from);
    if (const auto to = object.find("to")) {
      fault.to = readSeconds(*to);
      if (*fault.to <= fault.from)
        to->expected(fmt::format("a time after {} seconds, its beginning", fault.from));
    }
    fault.every = static_cast<std::uint32_t>(object.integer("every", 1, 1000000000, 1));
    const double probability = object.number("probability", 1);
    if (probability < 0 || probability > 1) object.require("probability").expected("a number from 0 to 1");
    fault.probability = probability;
    return fault;
  }

  const VehicleDescription& vehicle_;
  const CompanionFiles& files_;
  Index ecus_;
  std::vector<std::unique_ptr<Index>> requests_;
  std::unordered_set<const RequestDescription*> seen_;
  std::unordered_map<std::string, std::unique_ptr<CsvTable>> tables_;
};

}  // namespace

SimulationDescription readSimulation(const JsonPlace& place, const VehicleDescription& vehicle,
                                     const CompanionFiles& files) {
  return SimulationReader(vehicle, files).read(place);
}

}  // namespace tarnlog::host
