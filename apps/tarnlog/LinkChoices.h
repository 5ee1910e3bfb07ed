#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tarnlog {

/// What this computer has that a car may be connected to.
struct CarDevices {
  std::vector<std::string> serialPorts;    ///< paths of devices, where adapters on USB and Bluetooth appear
  std::vector<std::string> canInterfaces;  ///< names
};

/// The folders are those of the system's devices and network interfaces. One that is not there has none.
CarDevices findCarDevices(const std::filesystem::path& devices = "/dev",
                          const std::filesystem::path& interfaces = "/sys/class/net");

/// A way to a car to begin with.
struct LinkChoice {
  enum class Kind : std::uint8_t { SerialAdapter, NetworkAdapter, Ethernet, Can, Replay };
  Kind kind;
  std::string url;     ///< as `openLink` takes it, or its beginning where the user has to go on
  bool found = false;  ///< this computer has the device that it names
};

/// What was found, then every other kind as an example of how it is written.
std::vector<LinkChoice> linkChoices(const CarDevices& devices);

}  // namespace tarnlog
