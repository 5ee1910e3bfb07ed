#include "apps/tarn-record/PublishArguments.h"
#include "apps/common/HelpFormatter.h"

#include <memory>

#include "apps/common/ArgumentChecks.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/LoudnessArguments.h"
#include "apps/tarn-record/PublishCommand.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

void addPublishing(CLI::App& command, PublishOptions& options) {
  command
      .add_option(
          "--publish-access", options.access,
          Told::tr("What the broker asks for: a file of JSON with user, password, ca, certificate and key"))
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
  command
      .add_option(
          "--publish-data", options.data,
          Told::tr("Publish only this of what is recorded, and only every MS milliseconds; for several data, "
                   "several times"))
      ->allow_extra_args(false)
      ->check(isA(ValueKind::Datum))
      ->type_name(Told::tr("[ECU/[REQUEST/]]DATA[=MS]"));
  command
      .add_option("--publish-every", options.every,
                  Told::tr("Publish each datum only every MS milliseconds (default: each value)"))
      ->check(wholeNumber(0, 86'400'000))
      ->type_name(Told::tr("MS"));
  command
      .add_option("--publish-as", options.vehicle,
                  Told::tr("What the vehicle is called in the topics (default: its VIN or, when that is not "
                           "known, its name)"))
      ->type_name(Told::tr("NAME"));
}

Action addPublish(CLI::App& app) {
  const auto options = std::make_shared<PublishCommandOptions>();
  CLI::App& command = *app.add_subcommand(
      "publish", Told::tr("Publish what a broker has not acknowledged yet of measurement files"));
  command.add_option("FILE", options->files, Told::tr("Measurement files (MDF 4) of this recorder"))
      ->required()
      ->check(isA(ValueKind::File));
  command.add_option("--to", options->publish.to, Told::tr("The broker, and what stands before all topics"))
      ->required()
      ->type_name("mqtt[s]://HOST[:PORT]/TOPIC");
  addPublishing(command, options->publish);
  command.add_flag("--again", options->again, Told::tr("What was acknowledged before, too"));
  addLoudness(command, options->loudness);
  command.footer(helpFooter(
      Told::tr("What was acknowledged stands in NAME.published beside NAME.mf4. Subscribers tell an answer "
               "that comes "
               "twice by its acquisition and number."),
      "  tarn-record publish recordings/26-11-26_19h05mn07_all.mf4 \\\n"
      "      --to mqtt://localhost/fleet"));
  return [options] { return publishFiles(*options); };
}

}  // namespace tarnlog::record
