#include <memory>
#include <string>

#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/ListCommand.h"
#include "apps/tarn-record/OfflineVehicle.h"
#include "apps/tarn-record/StandardOutput.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

struct ListOptions {
  VehicleChoice vehicle;
  std::string filter;
  bool json = false;
};

}  // namespace

Action addList(CLI::App& app) {
  const auto options = std::make_shared<ListOptions>();
  CLI::App& command = *app.add_subcommand("list", Told::tr("Show the data that a vehicle offers"));
  addVehicle(command, options->vehicle);
  command
      .add_option("--filter", options->filter,
                  Told::tr("Only where name, request, ECU or unit contains this"))
      ->type_name(Told::tr("TEXT"));
  command.add_flag("--json", options->json, Told::tr("As JSON"));
  command.footer(helpFooter({}, "  tarn-record list --vehicle examples/road-car.vehicle.json --filter temp"));
  return [options] {
    OfflineVehicle vehicle(options->vehicle);
    print(catalogueList(vehicle.ferrox3(), vehicle.session(), options->filter, options->json));
    return kDone;
  };
}

}  // namespace tarnlog::record
