#include <memory>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/ShowJson.h"
#include "apps/tarn-record/ShowText.h"
#include "apps/tarn-record/StandardOutput.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

struct ShowChoice {
  ShowOptions options;
  bool json = false;
};

}  // namespace

Action addShow(CLI::App& app) {
  const auto options = std::make_shared<ShowChoice>();
  CLI::App& command =
      *app.add_subcommand("show", Told::tr("Show what a record holds: facts, marks, figures, quality"));
  addRecordFile(command, options->options.input);
  command.add_option("--data", options->options.data, Told::tr("Only these data"))
      ->check(isA(ValueKind::RecordDatum))
      ->type_name(Told::tr("[ECU/[REQUEST/]]DATA"));
  command
      .add_option("--from", options->options.from,
                  Told::tr("Figures only from this time on (seconds, as in the record)"))
      ->check(number())
      ->type_name(Told::tr("S"));
  command.add_option("--till", options->options.till, Told::tr("Figures only up to this time"))
      ->check(number())
      ->type_name(Told::tr("S"));
  command
      .add_option("--above", options->options.above,
                  Told::tr("Tell, too, for how long the data were above this number"))
      ->check(number())
      ->type_name(Told::tr("NUMBER"));
  command.add_flag("--json", options->json, Told::tr("As JSON"));
  command.footer(helpFooter(
      Told::tr("Figures: how many values, minimum and maximum and when they were first reached, the mean "
               "and standard deviation of the rows. Data whose values have names, and on/off data: how "
               "long each value stood, how often it began, and when first."),
      "  tarn-record show recordings/16-11-26_19h05mn07.txt \\\n"
      "      --data \"Vehicle speed\" --from 60 --till 120"));
  return [options] {
    const ShownRecord shown = shownRecord(options->options);
    print(options->json ? showJson(shown) : showText(shown, terminalWidth()));
    return kDone;
  };
}

}  // namespace tarnlog::record
