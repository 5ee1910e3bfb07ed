#include <memory>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/FileArguments.h"
#include "apps/tarn-record/LoudnessArguments.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/PublishArguments.h"
#include "apps/tarn-record/RunCommand.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

void addLimits(CLI::App& command, RunOptions& options) {
  command.add_option("--duration", options.duration, Told::tr("End the run S seconds after the first data"))
      ->check(wholeNumber(1, kLongestSeconds))
      ->type_name(Told::tr("S"));
  command
      .add_option(
          "--recordings", options.recordings,
          Told::tr("End the run after N recordings (default: 1 when the start is manual, else no limit)"))
      ->check(wholeNumber(1, 1000000000))
      ->type_name(Told::tr("N"));
}

/// What is written or sent beside the records.
void addMeasurement(CLI::App& command, RunOptions& options) {
  command
      .add_flag(
          "--mf4{record}", options.mf4,
          Told::tr("Also write what was answered, and when, as measurement data (MDF 4): a file beside each "
                   "record; --mf4=all: one file for the whole run"))
      ->check(oneOf({"record", "all"}))
      ->option_text("[=all]");
  command
      .add_option(
          "--samples", options.samples,
          Told::tr(
              "Write each answer with its time as a JSON line to this file or pipe (- is standard output)"))
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
  command
      .add_option("--publish", options.publish.to,
                  Told::tr("Publish each answer at an MQTT broker, as it comes (mqtts: over TLS); implies a "
                           "measurement file of the whole run"))
      ->type_name("mqtt[s]://HOST[:PORT]/TOPIC");
  addPublishing(command, options.publish);
}

}  // namespace

Action addRun(CLI::App& app) {
  const auto options = std::make_shared<RunOptions>();
  CLI::App& command =
      *app.add_subcommand("run", Told::tr("Record: wait for the start trigger or start at once"));
  addVehicle(command, options->vehicle, options->link);
  addTrace(command, options->link);
  addConfiguration(command, options->config);
  addFileOptions(command, options->files);
  command.add_flag("--folder-per-vehicle", options->folderPerVehicle,
                   Told::tr("Write the files into a folder there that is named after the vehicle"));
  command
      .add_option(
          "--boot-number", options->bootNumber,
          Told::tr("Begin file names with the number of this computer's boot, which is counted in this "
                   "file: for a clock without a battery"))
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
  addIntervals(command, options->link);
  addLimits(command, *options);
  addMeasurement(command, *options);
  command.add_flag(
      "--live", options->live,
      Told::tr("Show the values on standard output as they come: on a terminal as a table, else a line for "
               "each that changes (time, name, value and unit, with tabs between them)"));
  command
      .add_option(
          "--sync", options->sync,
          Told::tr("Bring the files to the disk every S seconds (default: 5; 0: only when they are closed)"))
      ->check(wholeNumber(0, 3600))
      ->type_name(Told::tr("S"));
  addLoudness(command, options->loudness);
  command.footer(helpFooter(
      Told::tr("Signals: INT, TERM and HUP stop like the stop button, a second one leaves at once; USR1 is "
               "the event button."),
      "  tarn-record run --vehicle examples/road-car.vehicle.json \\\n"
      "      --config examples/road-car.xml --folder recordings --duration 60"));
  return [options] {
    if (options->live && options->samples && isStandardOutput(outputPath(*options->samples)))
      throw BadInput(
          Told::tr("--live and --samples - together are not possible: both write to standard output"));
    return run(*options);
  };
}

}  // namespace tarnlog::record
