#pragma once

#include <memory>
#include <string>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/VehicleDescription.h"
#include "host/vehicle/VehicleSession.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"

/// Where a program starts: a description file in, a session out.
///
///     SystemFileSystem files;
///     SystemLinkClock clock;
///     const auto vehicle = openVehicle("road.json", files, systemLocale(), clock, [] { letEventsRun(); });
///     recorder.setSession(&vehicle->session());
namespace tarnlog::host {

/// A vehicle description, a link and the session over both.
class OpenedVehicle {
 public:
  virtual ~OpenedVehicle() = default;
  virtual const VehicleDescription& description() const = 0;
  virtual VehicleSession& session() = 0;
};

/// Reads a description file (and the tables that it names, relative to its folder). A TarnError tells what is
/// wrong, where, and what was expected there.
VehicleDescription readVehicleDescription(const std::string& path, const FileSystem& files);

/// Opens the described vehicle over its own simulation. `idleHook` runs at least every 20 ms while an answer
/// is awaited; it may be empty, and it may do anything but send requests. `clock` must outlive the result.
std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, const FileSystem& files,
                                           UserLocale locale, LinkClock& clock, Link::IdleHook idleHook);

/// The same over a link to a real vehicle.
std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, const FileSystem& files,
                                           UserLocale locale, LinkClock& clock, Link::IdleHook idleHook,
                                           std::unique_ptr<Link> link);

}  // namespace tarnlog::host
