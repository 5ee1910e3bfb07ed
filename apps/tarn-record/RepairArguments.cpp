#include <memory>
#include <string>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/RecordRepair.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/StandardOutput.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

Action addRepair(CLI::App& app) {
  const auto options = std::make_shared<std::string>();
  CLI::App& command = *app.add_subcommand(
      "repair", Told::tr("Close an XML record or measurement file whose recording was killed"));
  command.add_option("FILE", *options, Told::tr("XML record or event file, or measurement file"))
      ->required()
      ->check(isA(ValueKind::File));
  command.footer(helpFooter({}, "  tarn-record repair recordings/16-11-26_19h05mn07.xml"));
  return [options] {
    print(printableText(repairRecord(*options)));
    return kDone;
  };
}

}  // namespace tarnlog::record
