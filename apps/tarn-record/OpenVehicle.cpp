#include "apps/tarn-record/OpenVehicle.h"

#include <fmt/format.h>

#include <cstdio>
#include <utility>

#include "apps/common/TerminalText.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

void say(const std::string& text) {
  std::fputs(fmt::format("tarn-record: {}\n", printableLine(text)).c_str(), stderr);
}

void sayVehicle(const host::OpenedVehicle& vehicle, const host::LinkOptions& link) {
  const host::VehicleDescription& description = vehicle.description();
  const std::string& url = description.link;
  if (link.url.empty())
    say(url.empty() ? Told::tr("link: the simulation of the description") : Told::tr("link: {}", url));
  std::size_t requests = 0;
  for (const host::EcuDescription& ecu : description.ecus) requests += ecu.requests.size();
  say(Told::tr("vehicle {}: {} ECUs, {} requests", description.name, description.ecus.size(), requests));
}

}  // namespace

std::unique_ptr<host::OpenedVehicle> openVehicle(const std::string& path, FileSystem& files,
                                                 host::LinkClock& clock, host::Link::IdleHook idleHook,
                                                 const host::LinkOptions& link, Loudness loudness) {
  host::LinkOptions options = link;
  if (path == host::kObdCar && !link.url.empty() && loudness != Loudness::Quiet)
    say(Told::tr("asking the car behind {} what it offers", link.url));
  if (loudness == Loudness::Verbose && !link.url.empty()) say(Told::tr("link: {}", link.url));
  if (loudness == Loudness::Verbose)
    options.phase = [](host::OpeningPhase phase) { say(std::string(host::openingPhaseText(phase))); };
  auto vehicle = host::openVehicle(path, files, systemLocale(), clock, std::move(idleHook), options);
  if (loudness == Loudness::Quiet) return vehicle;
  for (const std::string& note : vehicle->description().notes) say(Told::tr("not offered: {}", note));
  if (loudness == Loudness::Verbose) sayVehicle(*vehicle, link);
  return vehicle;
}

}  // namespace tarnlog::record
