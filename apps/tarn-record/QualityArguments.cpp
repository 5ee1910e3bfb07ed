#include <cstdio>
#include <memory>
#include <string>

#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/QualityCommand.h"
#include "apps/tarn-record/StandardOutput.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

Action addQuality(CLI::App& app) {
  const auto options = std::make_shared<std::string>();
  CLI::App& command = *app.add_subcommand(
      "quality", Told::tr("Tell how well a recording went: answers, cycles a second, gaps, rows"));
  addRecordFile(command, *options);
  command.footer(helpFooter(
      Told::tr(
          "A measurement file that was closed tells what was counted while it was recorded; of all others "
          "that "
          "is told which can be counted in them. What is missing in the file is told on standard error."),
      "  tarn-record quality recordings/16-11-26_19h05mn07.mf4"));
  return [options] {
    const QualityReportOfFile report = qualityOfFile(*options);
    print(printableText(report.lines));
    std::fputs(printableText(report.missing).c_str(), stderr);
    return kDone;
  };
}

}  // namespace tarnlog::record
