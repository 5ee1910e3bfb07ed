#include "host/vehicle/Vehicle.h"

#include <functional>
#include <utility>

#include "host/link/OpenLink.h"
#include "host/link/SimulatedLink.h"
#include "host/link/TraceLink.h"
#include "host/vehicle/VehicleSimulator.h"

namespace tarnlog::host {
namespace {

/// A file's path relative to the folder of another file; absolute paths stay.
std::string besides(const std::string& path, const std::string& name) {
  const std::size_t slash = path.rfind('/');
  return name.starts_with('/') || slash == std::string::npos ? name : path.substr(0, slash + 1) + name;
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

  const VehicleDescription& description() const override { return description_; }
  VehicleSession& session() override { return session_; }

 private:
  VehicleDescription description_;
  VehicleSimulator simulator_;
  std::unique_ptr<Link> link_;
  VehicleSession session_;
};

}  // namespace

VehicleDescription readVehicleDescription(const std::string& path, const FileSystem& files) {
  return parseVehicleDescription(files.readAll(path), path,
                                 [&](const std::string& name) { return files.readAll(besides(path, name)); });
}

std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, FileSystem& files, UserLocale locale,
                                           LinkClock& clock, Link::IdleHook idleHook,
                                           const LinkOptions& options) {
  const auto makeLink = [&](SimulatedPeer& simulation) -> std::unique_ptr<Link> {
    std::unique_ptr<Link> link;
    if (options.url.empty())
      link = std::make_unique<SimulatedLink>(clock, simulation);
    else
      link = openLink(options.url, clock, files);
    if (options.trace.empty()) return link;
    return std::make_unique<TraceLink>(std::move(link), clock, files.create(options.trace));
  };
  return std::make_unique<VehicleOverLink>(readVehicleDescription(path, files), std::move(locale), clock,
                                           std::move(idleHook), makeLink);
}

std::unique_ptr<OpenedVehicle> openVehicle(const std::string& path, const FileSystem& files,
                                           UserLocale locale, LinkClock& clock, Link::IdleHook idleHook,
                                           std::unique_ptr<Link> link) {
  return std::make_unique<VehicleOverLink>(readVehicleDescription(path, files), std::move(locale), clock,
                                           std::move(idleHook),
                                           [&](SimulatedPeer& /*simulation*/) { return std::move(link); });
}

}  // namespace tarnlog::host
