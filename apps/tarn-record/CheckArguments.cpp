#include <memory>
#include <string>

#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/tarn-record/CheckCommand.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/OfflineVehicle.h"
#include "apps/tarn-record/StandardOutput.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/settings/FileSettingsStore.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

struct CheckOptions {
  VehicleChoice vehicle;
  std::string config;
};

}  // namespace

Action addCheck(CLI::App& app) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App& command =
      *app.add_subcommand("check", Told::tr("Show what of a configuration a vehicle can record"));
  addVehicle(command, options->vehicle);
  addConfiguration(command, options->config);
  command.footer(helpFooter({},
                            "  tarn-record check --vehicle examples/road-car.vehicle.json \\\n"
                            "      --config examples/road-car.xml"));
  return [options] {
    OfflineVehicle vehicle(options->vehicle);
    const FileSettingsStore settings(vehicle.files(), FileSettingsStore::defaultPath());
    const CheckedConfiguration checked =
        checkConfiguration(vehicle.files(), settings, options->config, vehicle.ferrox3(), vehicle.session());
    print(checked.report);
    if (!checked.refusal.empty()) throw BadInput(options->config + ": " + checked.refusal);
    return kDone;
  };
}

}  // namespace tarnlog::record
