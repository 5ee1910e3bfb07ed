#include "host/vehicle/description/ObdPids.h"

#include <array>
#include <optional>

#include "host/vehicle/description/DescriptionParts.h"

namespace tarnlog::host {
namespace {

constexpr std::int64_t kLongestData = 64;  // bytes

using Table = std::array<std::optional<ObdPid>, 256>;

ObdPid readPid(const JsonPlace& place) {
  const JsonObject object = place.object({"pid", "bytes", "formula", "data"});
  ObdPid pid;
  pid.number = object.require("pid").frame().front();
  pid.bytes = static_cast<std::size_t>(object.require("bytes").integer(1, kLongestData));
  const JsonPlace data = object.require("data");
  for (std::size_t i = 0; i < data.size(); ++i) pid.data.push_back(readData(data[i]));
  return pid;
}

Table readTable() {
  const std::string name = "obd-pids.json";
  const JsonValue document = parseJson(kObdPidsText, name);
  const JsonPlace root(document, name);
  const JsonObject object = root.object({"source", "pids"});
  const JsonPlace pids = object.require("pids");
  Table table;
  for (std::size_t i = 0; i < pids.size(); ++i) {
    ObdPid pid = readPid(pids[i]);
    table[pid.number] = std::move(pid);
  }
  return table;
}

}  // namespace

const ObdPid* findObdPid(std::uint8_t number) {
  static const Table table = readTable();
  return table[number] ? &*table[number] : nullptr;
}

}  // namespace tarnlog::host
