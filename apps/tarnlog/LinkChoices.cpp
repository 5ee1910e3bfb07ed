#include "apps/tarnlog/LinkChoices.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

namespace tarnlog {

namespace {

namespace fs = std::filesystem;
using Kind = LinkChoice::Kind;

constexpr std::array<std::string_view, 3> kSerialNames{"ttyUSB", "ttyACM", "rfcomm"};

std::vector<fs::path> entriesOf(const fs::path& folder) {
  std::vector<fs::path> paths;
  std::error_code none;
  for (fs::directory_iterator at(folder, none), end; at != end && !none; at.increment(none))
    paths.push_back(at->path());
  // ttyUSB2 before ttyUSB10.
  std::sort(paths.begin(), paths.end(), [](const fs::path& a, const fs::path& b) {
    const auto size = [](const fs::path& path) { return path.native().size(); };
    return size(a) != size(b) ? size(a) < size(b) : a < b;
  });
  return paths;
}

bool isSerialPort(const fs::path& path) {
  const std::string name = path.filename();
  return std::any_of(kSerialNames.begin(), kSerialNames.end(),
                     [&](std::string_view beginning) { return name.rfind(beginning, 0) == 0; });
}

bool isCanInterface(const fs::path& path) {
  constexpr int kCan = 280;  // ARPHRD_CAN
  int type = 0;
  std::ifstream(path / "type") >> type;
  return type == kCan;
}

}  // namespace

CarDevices findCarDevices(const fs::path& devices, const fs::path& interfaces) {
  CarDevices found;
  for (const fs::path& path : entriesOf(devices))
    if (isSerialPort(path)) found.serialPorts.push_back(path);
  for (const fs::path& path : entriesOf(interfaces))
    if (isCanInterface(path)) found.canInterfaces.push_back(path.filename());
  return found;
}

std::vector<LinkChoice> linkChoices(const CarDevices& devices) {
  std::vector<LinkChoice> choices;
  for (const std::string& port : devices.serialPorts)
    choices.push_back({Kind::SerialAdapter, "elm327://" + port, true});
  for (const std::string& name : devices.canInterfaces)
    choices.push_back({Kind::Can, "isotp://" + name, true});
  if (devices.serialPorts.empty()) choices.push_back({Kind::SerialAdapter, "elm327:///dev/ttyUSB0"});
  choices.push_back({Kind::NetworkAdapter, "elm327://192.168.0.10:35000"});
  choices.push_back({Kind::Ethernet, "doip://*"});
  if (devices.canInterfaces.empty()) choices.push_back({Kind::Can, "isotp://can0"});
  choices.push_back({Kind::Replay, "replay:"});
  return choices;
}

}  // namespace tarnlog
