#include "host/vehicle/Vehicle.h"

#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>

#include "host/link/LinkUrl.h"
#include "host/link/OpenLink.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/link/trace/TraceLink.h"
#include "host/vehicle/description/Intervals.h"
#include "host/vehicle/description/ObdPids.h"
#include "host/vehicle/obd/ObdScan.h"
#include "host/vehicle/simulation/VehicleSimulator.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

bool leadsOut(const std::filesystem::path& relative) {
  return relative.is_absolute() || (!relative.empty() && *relative.begin() == "..");
}

/// The path of a file that another file names, relative to that one's folder. A description comes from
/// somebody else: it must not show what lies elsewhere on this machine, not by a symbolic link either.
std::string pathBeside(const std::string& path, const std::string& name) {
  const std::size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "./" : path.substr(0, slash + 1);
  std::error_code error;
  if (leadsOut(std::filesystem::path(name).lexically_normal()) ||
      leadsOut(std::filesystem::relative(folder + name, folder, error)) || error)
    throw TarnError(1, "readVehicleDescription", name + ": it lies outside the folder of the description");
  return slash == std::string::npos ? name : folder + name;
}

/// A link of this URL; a replay of a drive tells PIDs apart that were asked for together.
std::unique_ptr<Link> linkAt(const std::string& url, LinkClock& clock, const FileSystem& files) {
  return openLink(url, clock, files, [](std::uint8_t number) {
    const ObdPid* const pid = findObdPid(number);
    return pid == nullptr ? std::size_t{0} : pid->bytes;
  });
}

/// The description's own simulation; one that its link names asks for no car.
bool isSimulation(const std::string& url) { return url.empty() || LinkUrl(url).scheme() == "simulation"; }

LinkHabits simulationHabits(const std::string& url) {
  if (url.empty()) return {};
  const LinkUrl link(url);
  link.allowOptions({"parallel", "bundle"});
  return linkHabits(link);
}

/// Makes the link; the peer is the description's simulation.
using LinkMaker = std::function<std::unique_ptr<Link>(SimulatedPeer&)>;

class VehicleOverLink : public OpenedVehicle {
 public:
  VehicleOverLink(VehicleDescription description, UserLocale locale, LinkClock& clock,
                  Link::IdleHook idleHook, const LinkMaker& makeLink)
      : description_(std::move(description)),
        simulator_(description_),
        link_(makeLink(simulator_)),
        session_(description_, *link_, clock, std::move(locale)) {
    link_->setIdleHook(std::move(idleHook));
  }
  void openLinkAtOnce(const PhaseHook& phase) {
    if (phase) phase(OpeningPhase::adapter);
    link_->open();
  }

  const VehicleDescription& description() const override { return description_; }
  VehicleSession& session() override { return session_; }

 private:
  VehicleDescription description_;
  VehicleSimulator simulator_;
  std::unique_ptr<Link> link_;
  VehicleSession session_;
};

std::unique_ptr<OpenedVehicle> openObdCar(std::unique_ptr<Link> link, UserLocale locale, LinkClock& clock,
                                          Link::IdleHook idleHook, const LinkOptions& options) {
  link->setIdleHook(idleHook);
  VehicleDescription description = scanObdVehicle(*link, clock, options.phase);
  for (const std::string& interval : options.intervals) setInterval(description, interval);
  return std::make_unique<VehicleOverLink>(std::move(description), std::move(locale), clock,
                                           std::move(idleHook),
                                           [&](SimulatedPeer& /*simulation*/) { return std::move(link); });
}

/// Says how it was reached. What holds a port or a connection keeps others from it.
std::unique_ptr<OpenedVehicle> reached(const std::string& url, bool keepOpen,
                                       std::unique_ptr<OpenedVehicle> vehicle) {
  vehicle->session().setLinkText(isSimulation(url) ? "simulation" : url);
  if (!keepOpen) vehicle->session().endCommunication();
  return vehicle;
}

}  // namespace

VehicleDescription readVehicleDescription(const std::string& path, const FileSystem& files) {
  return parseVehicleDescription(files.readAll(path), path, [&](const std::string& name) {
    return files.readAll(pathBeside(path, name));
  });
}

std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, FileSystem& files, UserLocale locale,
                                           LinkClock& clock, Link::IdleHook idleHook,
                                           const LinkOptions& options) {
  const auto traced = [&](std::unique_ptr<Link> link) -> std::unique_ptr<Link> {
    if (!options.trace.empty())
      link = std::make_unique<TraceLink>(std::move(link), clock, files.create(options.trace));
    link->setStopQuestion(options.stopAsked);
    return link;
  };
  if (path == kObdCar) {
    if (options.url.empty())
      throw TarnError(1, "openVehicle",
                      "vehicle obd2: expected a link to the car, like elm327:///dev/ttyUSB0");
    return reached(options.url, options.keepOpen,
                   openObdCar(traced(linkAt(options.url, clock, files)), std::move(locale), clock,
                              std::move(idleHook), options));
  }
  VehicleDescription description = readVehicleDescription(path, files);
  for (const std::string& interval : options.intervals) setInterval(description, interval);
  const std::string url = options.url.empty() ? description.link : options.url;
  const auto makeLink = [&](SimulatedPeer& simulation) {
    return traced(isSimulation(url)
                      ? std::make_unique<SimulatedLink>(clock, simulation, simulationHabits(url))
                      : linkAt(url, clock, files));
  };
  auto vehicle = std::make_unique<VehicleOverLink>(std::move(description), std::move(locale), clock,
                                                   std::move(idleHook), makeLink);
  if (options.openAtOnce) vehicle->openLinkAtOnce(options.phase);
  return reached(url, options.keepOpen, std::move(vehicle));
}

std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, const FileSystem& files,
                                           UserLocale locale, LinkClock& clock, Link::IdleHook idleHook,
                                           std::unique_ptr<Link> link) {
  if (path == kObdCar) return openObdCar(std::move(link), std::move(locale), clock, std::move(idleHook), {});
  return std::make_unique<VehicleOverLink>(readVehicleDescription(path, files), std::move(locale), clock,
                                           std::move(idleHook),
                                           [&](SimulatedPeer& /*simulation*/) { return std::move(link); });
}

}  // namespace tarnlog::host
