#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/obd/OpeningPhase.h"
#include "host/vehicle/session/VehicleSession.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"

/// Where a program starts: a description file in, a session out.
///
///     SystemFileSystem files;
///     SystemLinkClock clock;
///     const auto vehicle = openVehicle("road.json", files, systemLocale(), clock, [] { letEventsRun(); });
///     recorder.setSession(&vehicle->session());
namespace tarnlog::host {

/// A vehicle description, a link and the session over both. A car that was asked what it offers is named by
/// its VIN ("WVWZZZ1KZAW000001 (OBD car)"), where it tells one; `description().vin` has it alone.
class OpenedVehicle {
 public:
  virtual ~OpenedVehicle() = default;
  virtual const VehicleDescription& description() const = 0;
  virtual VehicleSession& session() = 0;
};

/// Reads a description file (and the tables that it names, relative to its folder). A TarnError tells what is
/// wrong, where, and what was expected there.
VehicleDescription readVehicleDescription(const std::string& path, const FileSystem& files);

/// Stands for a description file: a car that is asked what it offers (see ObdScan.h).
inline constexpr std::string_view kObdCar = "obd2:";

/// How the vehicle is reached.
struct LinkOptions {
  std::string url;    ///< as `openLink` takes it; empty: the description's own link or simulation
  std::string trace;  ///< a file, not there yet, that takes what goes over the link; empty: none
  /// A link that cannot be opened fails at once, not only with the first request.
  bool openAtOnce = false;
  /// A link that was opened to open the vehicle stays open, for who records at once; else it is let go until
  /// the first request.
  bool keepOpen = true;
  /// True when somebody wants to end: what takes longer than a moment is broken off. May be empty.
  Link::StopQuestion stopAsked{};
  /// "ECU/REQUEST=MS" each: intervals of requests, in place of the description's. TarnError for what is not
  /// written so, or names no request of the vehicle.
  std::vector<std::string> intervals{};
  /// Told what is done while the vehicle is opened. May be empty.
  PhaseHook phase{};
};

/// Opens the described vehicle, or the car behind the link when the path is `kObdCar`: that one is asked at
/// once, which can take a minute, and its answers may fail with a TarnError. `idleHook` runs at least every
/// 20 ms while an answer is awaited; it may be empty, and it may do anything but send requests. `clock` and
/// `files` must outlive the result.
std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, FileSystem& files, UserLocale locale,
                                           LinkClock& clock, Link::IdleHook idleHook,
                                           const LinkOptions& link = {});

/// The same over a link of the caller's own.
std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, const FileSystem& files,
                                           UserLocale locale, LinkClock& clock, Link::IdleHook idleHook,
                                           std::unique_ptr<Link> link);

}  // namespace tarnlog::host
