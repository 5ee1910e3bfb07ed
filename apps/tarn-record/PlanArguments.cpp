#include <memory>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/LoudnessArguments.h"
#include "apps/tarn-record/PlanCommand.h"
#include "apps/tarn-record/StandardOutput.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

Action addPlan(CLI::App& app) {
  const auto options = std::make_shared<PlanOptions>();
  CLI::App& command = *app.add_subcommand(
      "plan", Told::tr("Tell how fast a configuration is polled, and what each request costs"));
  addVehicle(command, options->vehicle, options->link);
  addConfiguration(command, options->config);
  command.add_option("--seconds", options->seconds, Told::tr("Poll for so long (default: 5)"))
      ->check(wholeNumber(1, 3600))
      ->type_name(Told::tr("S"));
  addIntervals(command, options->link);
  addLoudness(command, options->loudness);
  command.footer(helpFooter(Told::tr("Nothing is recorded."),
                            "  tarn-record plan --vehicle examples/road-car.vehicle.json \\\n"
                            "      --config examples/road-car.xml"));
  return [options] {
    print(printableText(plan(*options)));
    return kDone;
  };
}

}  // namespace tarnlog::record
