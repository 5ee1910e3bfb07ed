#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>

#include "apps/common/BadInput.h"
#include "apps/common/CommandLine.h"
#include "apps/common/Completion.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/StandardStreams.h"
#include "apps/common/TerminalText.h"
#include "apps/common/ToldTexts.h"
#include "apps/tarn-record/Commands.h"
#include "platform/text/Told.h"

namespace {

using namespace tarnlog;

int program(int argc, char** argv) {
  CLI::App app(Told::tr("Records the diagnostic data of a vehicle's control units"), "tarn-record");
  useHelpFormatter(app);
  app.set_version_flag("--version", TARNLOG_VERSION,
                       Told::tr("Display program version information and exit"));
  app.footer(Told::tr(
      "Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input. `man tarn-record` tells more."));
  const record::Commands commands(app);
  if (printCompletions(app, "complete", argc, argv)) return kDone;
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& asked) {
    return app.exit(asked);
  } catch (const CLI::ParseError& error) {
    throw BadInput(refusalOf(app, error, argc, argv));
  }
  return commands.runChosen();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    openClosedStandardStreams();
    tellInUsersLanguage("tarn-record");
    return program(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarn-record: %s\n", printableText(error.what()).c_str());
    return exitCodeAfter(error);
  }
}
