#include "apps/tarn-record/OpenVehicle.h"

#include <cstdio>
#include <utility>

#include "apps/common/TerminalText.h"

namespace tarnlog::record {

std::unique_ptr<host::OpenedVehicle> openVehicle(const std::string& path, FileSystem& files,
                                                 host::LinkClock& clock, host::Link::IdleHook idleHook,
                                                 const host::LinkOptions& link) {
  if (path == host::kObdCar && !link.url.empty())
    std::fprintf(stderr, "tarn-record: asking the car behind %s what it offers\n",
                 printableLine(link.url).c_str());
  auto vehicle = host::openVehicle(path, files, systemLocale(), clock, std::move(idleHook), link);
  for (const std::string& note : vehicle->description().notes)
    std::fprintf(stderr, "tarn-record: not offered: %s\n", printableLine(note).c_str());
  return vehicle;
}

}  // namespace tarnlog::record
