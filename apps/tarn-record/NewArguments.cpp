#include <memory>
#include <string>
#include <vector>

#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/Stylesheet.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/FileArguments.h"
#include "apps/tarn-record/NewCommand.h"
#include "apps/tarn-record/OfflineVehicle.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/settings/FileSettingsStore.h"

namespace tarnlog::record {

namespace {

struct NewOptions {
  VehicleChoice vehicle;
  std::vector<std::string> data;
  std::string output;
};

}  // namespace

Action addNew(CLI::App& app) {
  const auto options = std::make_shared<NewOptions>();
  CLI::App& command = *app.add_subcommand("new", "Write a configuration that records the named data");
  addVehicle(command, options->vehicle);
  command.add_option("--data", options->data, "Data to record, as `list` names them")
      ->required()
      ->type_name("ECU/REQUEST/DATA");
  addOutput(command, options->output, "Configuration file to write");
  command.footer(helpFooter({},
                            "  tarn-record new --vehicle examples/road-car.vehicle.json \\\n"
                            "      --data \"Engine/PID 0C/Engine speed\" \\\n"
                            "      --data \"Engine/PID 05/Coolant temperature\" --output warm-up.xml"));
  return [options] {
    options->output = outputPath(options->output);
    refuseInput(options->output, options->vehicle.path);
    OfflineVehicle vehicle(options->vehicle);
    oTarnParameters parameters(FileSettingsStore(vehicle.files(), FileSettingsStore::defaultPath()));
    addNamedData(parameters, vehicle.session(), options->data);
    parameters.SaveXmlConfiguration(vehicle.files(), options->output, kStylesheetUrl);
    return kDone;
  };
}

}  // namespace tarnlog::record
