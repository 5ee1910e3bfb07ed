#include <memory>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/FileArguments.h"
#include "apps/tarn-record/LoudnessArguments.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/ScanCommand.h"
#include "apps/tarn-record/StandardOutput.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

Action addScan(CLI::App& app) {
  const auto options = std::make_shared<ScanOptions>();
  CLI::App& command = *app.add_subcommand(
      "scan", Told::tr("Ask a car what it offers (OBD) and write it as a vehicle description"));
  command.add_option("--link", options->link.url, Told::tr("How the car is reached"))
      ->required()
      ->check(isA(ValueKind::Link))
      ->type_name(Told::tr("URL"));
  addTrace(command, options->link);
  addOutput(command, options->output,
            Told::tr("Vehicle description to write (replaced when it exists; - is standard output)"));
  addLoudness(command, options->loudness);
  command.footer(helpFooter({}, "  tarn-record scan --link elm327:///dev/ttyUSB0 --output car.vehicle.json"));
  return [options] {
    SystemFileSystem files;
    options->output = outputPath(options->output);
    report(options->output, scanCar(files, *options));
    return kDone;
  };
}

}  // namespace tarnlog::record
