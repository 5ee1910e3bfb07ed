#include "apps/tarn-record/ScanCommand.h"

#include <fmt/format.h>

#include <string_view>

#include "apps/common/BadInput.h"
#include "apps/tarn-record/OpenVehicle.h"
#include "apps/tarn-record/OutputFile.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

constexpr std::string_view kReplay = "replay:";

}  // namespace

std::string scanCar(FileSystem& files, const ScanOptions& options) {
  if (options.link.url.starts_with(kReplay))
    refuseInput(options.output, options.link.url.substr(kReplay.size()));
  if (options.output == options.link.trace)
    throw BadInput(Told::tr("--trace {}: expected another file than the output", options.link.trace));
  host::SystemLinkClock clock;
  const auto car = openVehicle(std::string(host::kObdCar), files, clock, {}, options.link, options.loudness);
  files.replace(options.output, host::writeVehicleDescription(car->description()));
  std::string report = Told::tr("{}: {} ECUs\n", options.output, car->description().ecus.size());
  for (const host::EcuDescription& ecu : car->description().ecus) {
    std::size_t data = 0;
    for (const host::RequestDescription& request : ecu.requests) data += request.data.size();
    report += Told::tr("  {} (address 0x{:X}): {} requests, {} data\n", ecu.name,
                       static_cast<std::uint32_t>(ecu.address), ecu.requests.size(), data);
  }
  return report;
}

}  // namespace tarnlog::record
