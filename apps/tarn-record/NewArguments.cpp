#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <string>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/RecordPrefix.h"
#include "apps/common/Stylesheet.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/FileArguments.h"
#include "apps/tarn-record/NewCommand.h"
#include "apps/tarn-record/OfflineVehicle.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/settings/FileSettingsStore.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

struct NewOptions {
  VehicleChoice vehicle;
  DataChoice data;
  TriggerChoice triggers;
  FileOptions files;
  std::string output;
};

void addData(CLI::App& command, DataChoice& choice) {
  command.add_option("--data", choice.data, Told::tr("Data to record, as `list` names them"))
      ->check(isA(ValueKind::Datum))
      ->type_name(Told::tr("ECU/REQUEST/DATA"));
  command
      .add_option(
          "--match", choice.match,
          Told::tr(
              "Data to record: all whose ECU/REQUEST/DATA, or DATA alone, fits this pattern; * stands for "
              "any characters, ? for one, and case does not count"))
      ->check(isA(ValueKind::Datum))
      ->type_name(Told::tr("PATTERN"));
  command.add_flag("--all", choice.all, Told::tr("Record all data of the vehicle"));
}

void addTriggers(CLI::App& command, TriggerChoice& choice) {
  command
      .add_option("--start", choice.start,
                  Told::tr("Start when the value rises (>) or falls (<) to the level; else by hand"))
      ->check(isA(ValueKind::DatumAndLevel))
      ->type_name(Told::tr("ECU/REQUEST/DATA>LEVEL"));
  command
      .add_option(
          "--stop", choice.stop,
          Told::tr("Stop when the value rises or falls to the level or, with seconds like 30s, after that "
                   "time; else by hand"))
      ->check(isA(ValueKind::DatumAndLevel))
      ->type_name(Told::tr("ECU/REQUEST/DATA<LEVEL"));
  command.add_option("--before", choice.before, Told::tr("Keep the S seconds before the start, too"))
      ->check(wholeNumber(0, kLongestSeconds))
      ->type_name(Told::tr("S"));
  command.add_option("--after", choice.after, Told::tr("Go on for S seconds after the stop"))
      ->check(wholeNumber(0, kLongestSeconds))
      ->type_name(Told::tr("S"));
}

int writeConfiguration(NewOptions& options) {
  options.output = outputPath(options.output);
  refuseInput(options.output, options.vehicle.path);
  OfflineVehicle vehicle(options.vehicle);
  oTarnParameters parameters(FileSettingsStore(vehicle.files(), FileSettingsStore::defaultPath()));
  addChosenData(parameters, vehicle.session(), options.data);
  for (const std::string& added : setTriggers(parameters, vehicle.session(), options.triggers))
    std::fputs(
        printableText("tarn-record: " + Told::tr("recorded, too, for a trigger watches it: {}", added) + "\n")
            .c_str(),
        stderr);
  options.files.apply(parameters);
  refusePrefixOutside(options.output, parameters.filePrefix);
  parameters.SaveXmlConfiguration(vehicle.files(), options.output, kStylesheetUrl);
  return kDone;
}

}  // namespace

Action addNew(CLI::App& app) {
  const auto options = std::make_shared<NewOptions>();
  CLI::App& command =
      *app.add_subcommand("new", Told::tr("Write a configuration that records the chosen data"));
  addVehicle(command, options->vehicle);
  addData(command, options->data);
  addTriggers(command, options->triggers);
  addFileOptions(command, options->files);
  addOutput(command, options->output,
            Told::tr("Configuration file to write (replaced when it exists; - is standard output)"));
  command.footer(
      helpFooter(Told::tr("A trigger can watch only what is recorded: what it names is recorded, too."),
                 "  tarn-record new --vehicle examples/road-car.vehicle.json \\\n"
                 "      --data \"Engine/PID 0C/Engine speed\" --match \"*temperature*\" \\\n"
                 "      --start \"Engine/PID 0C/Engine speed>3000\" --before 5 --stop 30s \\\n"
                 "      --output warm-up.xml"));
  return [options] { return writeConfiguration(*options); };
}

}  // namespace tarnlog::record
