#include "apps/tarn-record/ImportCommand.h"

#include <fmt/format.h>

#include "apps/tarn-record/OutputFile.h"
#include "host/odx/OdxImport.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "platform/text/Told.h"

namespace tarnlog::record {
namespace {

/// "cars/Kombi.pdx" is "Kombi".
std::string baseName(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  return name.substr(0, name.rfind('.'));
}

void addLines(std::string& report, const std::string& heading, const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  report += fmt::format("{} ({}):\n", heading, lines.size());
  for (const std::string& line : lines) report += "  " + line + "\n";
}

}  // namespace

std::string importOdxFile(FileSystem& files, const ImportOptions& options) {
  refuseInput(options.output, options.odx);
  const host::OdxImport import = host::importOdx(host::readPdx(options.odx),
                                                 options.name.empty() ? baseName(options.odx) : options.name);
  const std::string description = host::writeVehicleDescription(import.vehicle);
  // What is written here must open there.
  host::parseVehicleDescription(description, options.output, {});
  files.replace(options.output, description);

  std::size_t requests = 0;
  std::size_t data = 0;
  for (const host::EcuDescription& ecu : import.vehicle.ecus) {
    requests += ecu.requests.size();
    for (const host::RequestDescription& request : ecu.requests) data += request.data.size();
  }
  std::string report = Told::tr("{}: {} ECUs, {} requests, {} data", options.output,
                                import.vehicle.ecus.size(), requests, data) +
                       "\n";
  addLines(report, Told::tr("Please look at"), import.notes);
  addLines(report, Told::tr("Left out"), import.leftOut);
  return report;
}

}  // namespace tarnlog::record
