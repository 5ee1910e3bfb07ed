#include <memory>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/FileArguments.h"
#include "apps/tarn-record/ImportCommand.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/StandardOutput.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

Action addImport(CLI::App& app) {
  const auto options = std::make_shared<ImportOptions>();
  CLI::App& command =
      *app.add_subcommand("import", Told::tr("Make a vehicle description of an ODX container"));
  command.add_option("--odx", options->odx, Told::tr("ODX 2.2 container (.pdx), or one of its documents"))
      ->check(isA(ValueKind::File))
      ->required()
      ->type_name(Told::tr("FILE"));
  addOutput(command, options->output,
            Told::tr("Vehicle description to write (replaced when it exists; - is standard output)"));
  command.add_option("--name", options->name, Told::tr("Name of the vehicle (default: the container's)"))
      ->type_name(Told::tr("TEXT"));
  command.footer(helpFooter({}, "  tarn-record import --odx car.pdx --output car.vehicle.json"));
  return [options] {
    SystemFileSystem files;
    options->output = outputPath(options->output);
    report(options->output, importOdxFile(files, *options));
    return kDone;
  };
}

}  // namespace tarnlog::record
